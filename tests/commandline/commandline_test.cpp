// quarvel-data from its command line: what it says of an installation, and its exit status.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <sstream>

#include "commandline/commands.h"
#include "tests/support/environment.h"
#include "tests/support/workshop.h"

#ifndef _WIN32
#include <pty.h>
#include <unistd.h>
#endif

namespace {

using std::string;

class CommandLine : public ::testing::Test {
  protected:
    // The exit status and what is said, the folder of the drives left out.
    string Run(std::vector<const char*> words) {
        words.insert(words.begin(), "quarvel-data");
        std::ostringstream said;
        const int status =
            commandline::Main(static_cast<int>(words.size()), words.data(), said, said);
        const auto folder = workshop.Folder().u8string();
        string text = std::to_string(status) + "\n" + said.str();
        for (auto at = text.find(string(folder.begin(), folder.end())); at != text.npos;
             at = text.find(string(folder.begin(), folder.end()))) {
            text.erase(at, folder.size());
        }
        std::replace(text.begin(), text.end(), '\\', '/');
        return std::regex_replace(text, std::regex("[0-9]{4}(-[0-9]{2}){2} [0-9.]{8}"), "<time>");
    }
    const test::Workshop workshop;
};

TEST_F(CommandLine, BacksUpVerifiesAndBringsBack) {
    const std::pair<std::vector<const char*>, const char*> commands[] = {
        {{"backup", "c:\\tolvarin\\USER\\PROD\\p10\\*.*", "d:", "/s"},
         "0\n1 file, 194 bytes in /d/QVBACKUP/<time> p10\n"},
        {{"backup", "c:\\tolvarin\\USER\\DESIGN", "\xCE\xA9", "d:"},
         "2\nquarvel-data: What was given has a character that the data cannot hold\n"},
        {{"backup", "/s"}, "2\nquarvel-data: What is to be backed up, and to which drive?\n"},
        {{"restore", "d:"}, "0\n  1  <time>  p10  1 file, 194 bytes  whole\n"},
        {{"restore", "D", "1"}, "0\nc:/tolvarin/USER/PROD/P10 is as it was backed up\n"},
        {{"restore", "d:\\", "P10"}, "2\nquarvel-data: There is no backup P10 on the drive\n"},
        {{"verify", "d"}, "0\n<time> p10: 1 file, 194 bytes: all right\n"},
        {{"verify", "c:", "P10"}, "2\nquarvel-data: There is no backup P10 on the drive\n"},
        {{"verify", "d:\\x"},
         "2\nDESTINATION: d:/x is no drive\nRun with --help for more information.\n"},
        {{"verify", "1"}, "2\nDESTINATION: 1 is no drive\nRun with --help for more information.\n"},
        {{"report", "no/page.html"},
         "2\nquarvel-data: no/page.html: the directory that it belongs in is missing\n"},
    };
    for (const auto& [words, said] : commands) EXPECT_EQ(Run(words), said);
    const string inside = workshop.Path("c:\\tolvarin\\page.html").string();
    EXPECT_EQ(Run({"report", inside.c_str()}),
              "2\nquarvel-data: The page would lie in the data, in c:/tolvarin\n");
    const string outside = (workshop.Folder() / "page.html").string();
    for (int times = 0; times < 2; ++times) EXPECT_EQ(Run({"report", outside.c_str()}), "0\n");
    EXPECT_GT(std::filesystem::file_size(outside), 10000u);
}

TEST_F(CommandLine, LooksOverTheInstallation) {
    workshop.Write("c:\\tolvarin\\USER\\PROD\\NOTES.TXT", "");
    workshop.Write("c:\\tolvarin\\USER\\PROD\\JOB\\OLD\\A.TAP", "");
    workshop.Write("c:\\tolvarin\\USER\\PROD\\JOB\\a\xFC.txt", "");
    workshop.Write("d:\\tolvarin\\USER\\PROD\\J\\MATERIAL.DAT",
                   "[Mat1]\nType=ms\nProcess=plasma\n");
    for (const char* folder : {"COMP", "GROUP", "NEST", "TAPE"}) {
        workshop.MakeDir(string("d:\\tolvarin\\USER\\PROD\\J\\") + folder);
    }
    workshop.Write("c:\\tolvarin\\network\\user1\\nestuser.ini",
                   "[Nest]\nPrePiercingThickness=2,5\nNestCheck=on\n");
    EXPECT_EQ(Run({"check"}),
              R"(1
/c/tolvarin/system/process.dat:28: note: Leadout=Arc is kept by a save only where the process window has shown this process before
/c/tolvarin/network/user1/nestuser.ini:2: warning: PrePiercingThickness=2,5 reads as 2: decimals stand behind a point
/c/tolvarin/network/user1/nestuser.ini:3: warning: NestCheck=on reads as 0: it does not begin with a number
/c/tolvarin/USER/PROD/NOTES.TXT: warning: is a file among directories: it is listed like one
/c/tolvarin/USER/PROD/JOB: warning: has no folder COMP
/c/tolvarin/USER/PROD/JOB: warning: has no folder GROUP
/c/tolvarin/USER/PROD/JOB: warning: has no folder NEST
/c/tolvarin/USER/PROD/JOB: warning: has no folder TAPE
/c/tolvarin/USER/PROD/JOB: note: holds the folder OLD, which keeps it from being deleted
/c/tolvarin/USER/PROD/JOB: note: holds the stray file aü.txt, which a deletion takes along
/c/tolvarin/USER/PROD/JOB: warning: has no material list, so Material... cannot open one
/c/tolvarin/USER/PROD/P10/MATERIAL.DAT:12: warning: 12.5 mm is outside the 0 to 0 mm of Oxy Fuel: it is pulled inside when the list is opened
)");
    EXPECT_EQ(Run({"uses", "process", "PLASMA "}),
              R"(1
/c/tolvarin/system/material.dat:8: note: entry 1: MS, Plasma
/c/tolvarin/USER/PROD/P10/MATERIAL.DAT:8: note: entry 1: MS, Plasma, 10mm
/d/tolvarin/USER/PROD/J/MATERIAL.DAT:3: note: entry 1: ms, plasma
)");
    EXPECT_EQ(Run({"uses", "material", "--drive", "d", "ss304"}), R"(1
/c/tolvarin/system/material.dat:11: note: entry 2: SS304, Oxy Fuel
)");
    EXPECT_EQ(Run({"uses", "process", "Laser"}), "0\n");
    EXPECT_EQ(Run({"check", "--drive", "q"}), "2\nquarvel-data: q: there is no such drive\n");
    EXPECT_EQ(Run({"uses", "process", "\xCE\xA9"}),
              "2\nquarvel-data: What was given has a character that the data cannot hold\n");
    EXPECT_EQ(Run({"report", "--drive", "q", "page"}),
              "2\nquarvel-data: q: there is no such drive\n");
    EXPECT_EQ(Run({"--help"})[0], '0');
    for (const char* wrong : {"chek", "uses", "report"}) EXPECT_EQ(Run({wrong})[0], '2') << wrong;
    EXPECT_EQ(Run({"check", "--drive", "c", "d"})[0], '2');
    for (const char* name : {"system", "network", "USER"}) {
        std::filesystem::remove_all(workshop.Path(string("c:\\tolvarin\\") + name));
    }
    EXPECT_EQ(Run({"check"}),
              R"(1
/c/tolvarin/system/process.dat: error: is not found: there are no processes
/c/tolvarin/system/mattypes.dat: error: is not found: there are no material types
/c/tolvarin/system/material.dat: error: is not found: no production directory can be made
)");
    workshop.Write("c:\\windows\\nestcfg.ini", "[system]\nNestRootDir=\\old");
    EXPECT_EQ(Run({"check"}).find("/c/old/system/process.dat: error: is not found"), 2u);
}

#ifndef _WIN32
// A terminal is told how far it is, in a line that goes again.
TEST_F(CommandLine, TellsATerminalHowFarItIs) {
    int terminal = -1, screen = -1;
    ASSERT_EQ(openpty(&terminal, &screen, nullptr, nullptr, nullptr), 0);
    const int before = dup(STDERR_FILENO);
    dup2(screen, STDERR_FILENO);
    EXPECT_EQ(Run({"backup", "c:\\tolvarin\\USER\\PROD\\p10", "d:"})[0], '0');
    dup2(before, STDERR_FILENO);
    close(before), close(screen);  // so that what is read ends
    string shown;
    for (char c = 0; read(terminal, &c, 1) == 1;) shown += c;
    EXPECT_EQ(shown.substr(0, 12), "24 % \r     \r");
    close(terminal);
}

// A page that is only to be seen is kept in the cache; one in a file is written, shown or not.
TEST_F(CommandLine, ShowsAPageInTheBrowser) {
    workshop.Write("d:\\xdg-open",
                   "#!/bin/sh\n(echo \"$1\"; cat \"$1\") >\"$0.new\"; mv \"$0.new\" \"$0.said\"\n");
    std::filesystem::permissions(workshop.Path("d:\\xdg-open"), std::filesystem::perms::owner_all);
    const string bin = workshop.Path("d:").string(), page = bin + "/page.html";
    const test::Environment cache("XDG_CACHE_HOME", bin);
    {
        const test::Environment path("PATH", bin + ":/usr/bin:/bin");
        EXPECT_EQ(Run({"check", "--open"}).substr(0, 2), "1\n");
        for (int tries = 0; tries < 500 && !workshop.Exists("d:\\xdg-open.said"); ++tries)
            usleep(20000);
        const string said = workshop.Read("d:\\xdg-open.said");
        EXPECT_TRUE(said.starts_with(bin + "/quarvel-sysman/check.html\n<!DOCTYPE")) << said;
    }
    const test::Environment nowhere("PATH", "/nowhere");
    const string none = ".html: there is no program to show it with\n";
    EXPECT_EQ(Run({"report", page.c_str(), "--open"}),
              "0\nquarvel-data: cannot be shown: /d/page" + none);
    EXPECT_GT(std::filesystem::file_size(page), 10000u);
    EXPECT_EQ(Run({"report", "--open"}), "2\nquarvel-data: /d/quarvel-sysman/report" + none);
}
#endif

}  // namespace
