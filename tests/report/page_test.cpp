// The page as a whole: escaped, its tags nested and its links leading somewhere, whatever is in the
// data; what cannot be read is told on it.
#include "report/page.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>
#include <vector>

#include "app/system_config.h"
#include "errors/errors.h"
#include "tests/support/script_text.h"
#include "tests/support/workshop.h"

namespace {

using std::string;

// Looks at what every page must hold to.
void CheckForm(const string& page) {
    std::vector<string> open;
    std::set<string> ids, links;
    std::size_t at = page.find("<html");
    ASSERT_NE(at, page.npos);
    for (const char c : page) ASSERT_TRUE(c < 0 || c >= ' ' || c == '\n') << int{c};
    static const std::regex kAttribute(R"re( ([a-zA-Z0-9-]+)="([^"<]*)")re", std::regex::optimize);
    for (; at != page.npos; at = page.find('<', at + 1)) {
        const auto end = page.find('>', at);
        ASSERT_NE(end, page.npos);
        const string tag = page.substr(at + 1, end - at - 1);
        const string name = tag.substr(0, tag.find_first_of(" /", 1));
        if (tag[0] == '/') {
            ASSERT_FALSE(open.empty());
            ASSERT_EQ(tag.substr(1), open.back()) << page.substr(at > 200 ? at - 200 : 0, 220);
            open.pop_back();
        } else if (!tag.ends_with('/')) {
            open.push_back(name);
        }
        ASSERT_TRUE(name != "script" && name != "b>" && name != "link") << tag;
        std::size_t length = name.size() + (tag.ends_with('/') ? 1 : 0);
        if (tag[0] == '/') continue;
        for (std::sregex_iterator part(tag.begin(), tag.end(), kAttribute), last; part != last;
             ++part) {
            const string key = part->str(1), value = part->str(2);
            length += part->str(0).size();
            EXPECT_TRUE(key != "id" || ids.insert(value).second) << value << " is there twice";
            if (key == "href") links.insert(value);
            EXPECT_FALSE(key.starts_with("on") || key == "src" || key == "style") << tag;
            std::istringstream labels(key == "aria-labelledby" ? value : "");
            for (string label; labels >> label;) links.insert("#" + label);
        }
        ASSERT_EQ(length, tag.size()) << tag;
    }
    EXPECT_TRUE(open.empty());
    for (const string& link : links) {
        EXPECT_TRUE(link.starts_with('#') && ids.contains(link.substr(1))) << link;
    }
    // From each finding there is a way to its place, and from there back.
    for (int n = 1; ids.contains("f" + std::to_string(n)); ++n) {
        const string finding = "f" + std::to_string(n), row = "<tr id=\"" + finding + "\">";
        EXPECT_TRUE(links.contains("#" + finding)) << finding;
        const string cells = page.substr(page.find(row), 400);
        EXPECT_NE(cells.find("<td><a href=\"#"), cells.npos) << cells;
    }
}

string PageOf(const std::vector<string>& drives = {}) {
    app::LocateConfigFile();
    app::ReadSystemConfig();
    std::tm now{};
    now.tm_year = 126, now.tm_mday = 1;
    const string page = report::Page(drives, now);
    CheckForm(page);
    return page;
}

void Expect(const string& page, std::initializer_list<const char*> parts) {
    for (const string part : parts) EXPECT_NE(page.find(part), page.npos) << part;
}

// Everything that is said and drawn of two processes, two types and two lists: page.html, which a
// browser shows, too. One feed rate and one pierce time are doubted, in table, chart and findings.
TEST(Report, ShowsWhatIsSetUp) {
    const test::TempDrives drives;
    drives.Write("c:\\tolvarin\\system\\process.dat",
                 "[Processes]\nProcess1=Plasma\nProcess2=Oxy <1>\n"
                 "[Plasma]\nRapid=20000\nLineMarkRate=.5\nLeadin=Arc\nLeadout=Line\n"
                 "Leadoutangle=-30\nLeadoutextension=1\nLeadoutPercent=50\nLeadoutOverrun=3\n"
                 "MajorDir=1\nMinorDir=1\nMinorOpenKerf=1\nAddKerf=1\n"
                 "Thickness1=3, .1, 6400, 4, 1.5\nThickness2=6, 2, 450, 6, 1.5\n"
                 "Thickness3=12, 12, 2250, 8, 2\n"
                 "[Oxy <1>]\nLeadin=A180\nExtension=1\nMajorDir=-1\nMinorDir=-1\n"
                 "MinorOpenKerf=-1\n");
    drives.Write("c:\\tolvarin\\system\\mattypes.dat",
                 "[Materials]\nMat1=MS\nMat2=AL\n[MS]\nDescription=Mild & hard\nDensity=7.85\n"
                 "[AL]\nDensity=.5\n");
    drives.Write("c:\\tolvarin\\system\\material.dat",
                 "[Mat1]\nType=MS\nThickness=10\nProcess=Plasma\n"
                 "[Mat2]\nType=ZZ\nThickness=6\nProcess=Oxy <1>\n"
                 "[Mat3]\nType=MS\nThickness=12.5\nProcess=Plasma\n");
    drives.Write("c:\\tolvarin\\USER\\PROD\\P10\\MATERIAL.DAT",
                 "[Mat1]\nType=AL\nThickness=6\nProcess=Plasma\n"
                 "[Mat2]\nType=AL\nThickness=13\nProcess=Plasma\n");
    drives.Write("c:\\tolvarin\\network\\user1\\nestuser.ini", "[Nest]\nNestCheck=on\n");
    for (const char* folder : {"PROD\\P10\\COMP", "PROD\\P10\\GROUP", "PROD\\P10\\NEST",
                               "PROD\\P10\\TAPE", "DESIGN\\PLATES\\GEOMETRY"}) {
        drives.MakeDir(std::string("c:\\tolvarin\\USER\\") + folder);
    }
    const string page = PageOf();
    Expect(page, {"<title>Cutting data of c:\\tolvarin</title>"});
    EXPECT_EQ(page.substr(page.find("<body")), test::SourceFile("tests/report/page.html"));
}

TEST(Report, TellsWhatCannotBeRead) {
    const test::TempDrives drives;
    Expect(PageOf(),
           {"There is no file c:\\tolvarin\\system\\process.dat",
            "There is no file c:\\tolvarin\\system\\mattypes.dat", "There is no material list."});
    EXPECT_THROW(PageOf({"x"}), errors::FileError);
    drives.Write("c:\\tolvarin\\system\\process.dat",
                 test::Meant("[Processes]\r\n{1-21:Process#=P#\r\n}"));
    drives.Write("c:\\tolvarin\\system\\mattypes.dat", "[Materials]\r\nMat1=MS\r\n");
    drives.MakeDir("c:\\tolvarin\\system\\material.dat");
    drives.Write("c:\\tolvarin\\USER\\PROD\\BIG\\MATERIAL.DAT",
                 test::Meant("{1-200:[Mat#]\r\nType=MS\r\nThickness=#\r\n}"));
    drives.Write("c:\\tolvarin\\USER\\PROD\\GOOD\\MATERIAL.DAT",
                 "[Mat1]\r\nType=ms\r\n[Mat2]\r\nType=zz\r\n");
    drives.Write("c:\\tolvarin\\USER\\PROD\\STRAY", "");
    Expect(PageOf({"c", "C"}),
           {"PROCESS.DAT lists more than 20 processes", "<a href=\"#m1\">ms</a>",
            "The list has more than 199 entries", "is a file among directories",
            "<a href=\"#drive-c\">Drive c:</a>", "<a href=\"#d-c2e2\">c: good, entry 2</a>"});
}

TEST(Report, WithstandsWhatIsInTheData) {
    const test::TempDrives drives;
    const string names = test::Meant(
        "Process1=<script>x</script>\r\nProcess2=\"onload=\"y\r\nProcess3=it's & co\r\n"
        "Process4=A\\x01b\r\nProcess5=\\x81\r\nProcess6={1-64:W}\r\n"
        "Process7=</style><!--\r\n{8-20:Process#=P#\r\n}");
    string file = "[Processes]\r\n" + names;
    const char* const rows[] = {
        "{1-100:Thickness#=#, 0, 0, 0, 0\r\n}", "{1-100:Thickness#=5, 1e38, 1e-38, 1e38, 1\r\n}",
        "{1-100:Thickness#=1e#, #, 1e38, 1e-45, 1\r\n}", "Thickness1=1e38,,\r\nThickness2=-4\r\n",
        "Thickness1=3, 2, 9, 4\r\nThickness2=4, 1, 9000, 4\r\n"};
    std::istringstream lines(names);
    int n = 0;
    for (string line; std::getline(lines, line, '\n'); ++n) {
        const string name = line.substr(line.find('=') + 1, line.find('\r') - line.find('=') - 1);
        static const char* const kCodes[] = {"Line", "Arc", "A180", "junk"};
        file += "[" + name + "]\r\nLeadin=" + kCodes[n % 4] +
                "\r\nAngle=-32768\r\nLeadout=" + kCodes[n / 4 % 4] +
                "\r\nExtension=1\r\nLeadoutPercent=" + (n % 2 != 0 ? "32767" : "-1") +
                "\r\nLeadoutOverrun=" + (n % 3 != 0 ? "32767" : "-32768") +
                "\r\nMajorDir=" + std::to_string(n % 4 - 1) + "\r\n" + test::Meant(rows[n % 5]);
    }
    drives.Write("c:\\tolvarin\\system\\process.dat", file);
    string types = std::regex_replace(names, std::regex("Process"), "Mat");
    drives.Write("c:\\tolvarin\\system\\mattypes.dat", "[Materials]\r\n" + types);
    drives.Write(
        "c:\\tolvarin\\USER\\PROD\\A&B 'x'\\MATERIAL.DAT",
        "[Mat1]\r\nType=<i>\r\nProcess=<script>x</script>\r\nThickness=1e38\r\n[Mat1]\r\n");
    const string page = PageOf();
    EXPECT_EQ(page.find("inf mm"), page.npos);
    Expect(page, {"&lt;script&gt;x&lt;/script&gt;</h2>", "Process 5", "&lt;i&gt;",
                  "a&amp;b &#39;x&#39;", "A\\x01b", "\\x81", "&quot;onload=&quot;y"});
}

}  // namespace
