// The pages of a directory listing, line by line, from real directories.
#include "directories/print_directory.h"

#include <chrono>
#include <ctime>
#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

#include "errors/errors.h"
#include "tests/directories/directory_windows.h"
#include "tests/support/environment.h"
#include "views/view_procedures.h"

namespace {

namespace fs = std::filesystem;
using directories::DataKind;
using directories::FrmPrint;
using test::Keyboard;
using test::kTitle;
using test::Log;
using Pages = std::vector<views::Printer::Page>;

// Keeps its pages, or fails.
class Printer : public views::Printer {
  public:
    Printer() : before_(views::InstallPrinter(this)) {}
    ~Printer() override { views::InstallPrinter(before_); }
    void ShowSetup() override { ++setups; }

    std::vector<Pages> documents;
    std::string failure;
    int setups = 0;
    const int* busy = nullptr;  // the depth of the busy pointer, looked at while it prints
    int busySeen = 0;

  protected:
    void Send(const Pages& pages) override {
        busySeen = *busy;
        if (!failure.empty()) throw errors::FatalError(failure);
        documents.push_back(pages);
    }

  private:
    views::Printer* before_;
};

const std::string kJob = "c:\\tolvarin\\USER\\PROD\\JOB1\\";
const Log kNone = {"<No files>", ""};

#ifdef _WIN32
const std::string kDate = "10/27/2026 2:05:09 PM";
#else
const std::string kDate = "10/27/26 14:05:09";
#endif

class PrintingListings : public test::DirectoryWindows {
  protected:
    PrintingListings() { printer.busy = &screen.busy; }

    // A file of a size, without filling the disk, changed on 27 October 2026 at 14:05:09.
    void MakeFile(const std::string& path, std::uintmax_t size) {
        drives.Write(path, "");
        fs::resize_file(drives.Path(path), size);
        std::tm time = {};
        time.tm_year = 126, time.tm_mon = 9, time.tm_mday = 27;
        time.tm_hour = 14, time.tm_min = 5, time.tm_sec = 9, time.tm_isdst = -1;
        fs::last_write_time(drives.Path(path),
                            std::chrono::file_clock::from_sys(
                                std::chrono::system_clock::from_time_t(std::mktime(&time))));
    }
    // Chooses in the dialog and presses Enter; the pages without their first two lines, which are
    // checked here.
    Pages Print(const std::function<void(FrmPrint&)>& choose = [](FrmPrint&) {}) {
        printer.documents.clear();
        Open<FrmPrint>([&](FrmPrint& window, Keyboard& keyboard) {
            choose(window);
            keyboard.Press(views::kKeyEnter);
            EXPECT_FALSE(window.IsOpen());
        });
        if (printer.documents.size() != 1) return {};
        Pages pages = printer.documents[0];
        for (auto& page : pages) {
            EXPECT_EQ(page[0].substr(0, 46), "Quarvel for Windows by Halcor.           Date ");
            EXPECT_GE(page[0].size(), 46u + 6);
            EXPECT_EQ(page[1], "");
            page.erase(page.begin(), page.begin() + 2);
        }
        return pages;
    }
    // A page: what follows the date line.
    static Log Page(const std::string& kind, const std::string& name, const Log& rest = {}) {
        Log page = {kind, "", name + " directory", ""};
        page.insert(page.end(), rest.begin(), rest.end());
        return page;
    }
    static void Only(FrmPrint& window, const views::CheckBox& category) {
        for (auto* box : {&window.chkComp, &window.chkGroups, &window.chkNest, &window.chkTape}) {
            if (box != &category) box->Toggle();
        }
    }
    Printer printer;
#ifndef _WIN32
    test::Environment language{"LC_ALL", "C"};
#endif
};

TEST_F(PrintingListings, NamesSizesAndDatesStandInTheirColumns) {
    MakeFile(kJob + "TAPE\\zero", 0);
    MakeFile(kJob + "TAPE\\full", 999999);
    MakeFile(kJob + "TAPE\\more", 1234567);
    MakeFile(kJob + "TAPE\\_huge", 5'000'000'001);
    MakeFile(kJob +
                 "TAPE\\\xDC"
                 "ber.tap",
             7);
    MakeFile(kJob + "TAPE\\" + std::string(51, 'n'), 51);
    drives.SetReadOnly(kJob + "TAPE\\more", true);
    drives.MakeDir(kJob + "TAPE\\a.tap");
    drives.MakeDir(kJob + "COMP");  // empty; GROUP and NEST are missing
    Prepare(DataKind::kProduction, "job1");
    const auto line = [](const std::string& name, const std::string& size) {
        return name + std::string(50 - name.size(), ' ') + size + "   " + kDate;
    };
    Log rest = {"Components", "",      "<No files>", "",           "Groups", "",      "<No files>",
                "",           "Nests", "",           "<No files>", "",       "Tapes", ""};
    const Log tapes = {line("full", "999999"),
                       line("more", "234567"),
                       std::string(51, 'n'),
                       line("", "    51"),
                       line("zero", "     0"),
                       line("_huge", "000001"),
                       line("\xDC"
                            "ber.tap",
                            "     7"),
                       ""};
    rest.insert(rest.end(), tapes.begin(), tapes.end());
    EXPECT_EQ(Print(), Pages{Page("Production Data", "job1", rest)});
    EXPECT_EQ(printer.busySeen, 1);
    EXPECT_EQ(screen.busy, 0);
}

#ifdef _WIN32
TEST_F(PrintingListings, HiddenFilesAreLeftOut) {
    MakeFile(kJob + "NEST\\hidden", 1);
    SetFileAttributesW(drives.Path(kJob + "NEST\\hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    Prepare(DataKind::kProduction, "job1");
    EXPECT_EQ(Print([](FrmPrint& window) { Only(window, window.chkNest); }),
              Pages{Page("Production Data", "job1", {"Nests", "", "<No files>", ""})});
}
#endif

TEST_F(PrintingListings, WithoutAnyCategoryAPageHasItsHeaderOnly) {
    drives.Write("c:\\tolvarin\\USER\\PROD\\notes.txt", "listed like a directory");
    Prepare(DataKind::kProduction, "notes.txt");
    EXPECT_EQ(Print([&](FrmPrint& window) {
                  Only(window, window.chkComp);
                  window.chkComp.Toggle();
              }),
              Pages{Page("Production Data", "notes.txt")});
}

TEST_F(PrintingListings, DesignsAreOneSectionAndTheirDriveIsTheWindowsOne) {
    MakeFile("d:\\tolvarin\\USER\\DESIGN\\PLATES\\GEOMETRY\\b.dsn", 1);
    MakeFile("d:\\tolvarin\\USER\\DESIGN\\PLATES\\GEOMETRY\\A.dsn", 1);
    drives.Write("d:\\tolvarin\\USER\\DESIGN\\PLATES\\COMP\\c", "of no interest");
    Prepare(DataKind::kDesign, "plates", "d:");
    const std::string gap(45, ' ');
    EXPECT_EQ(Print([](FrmPrint& window) {
                  for (const auto* box :
                       {&window.chkComp, &window.chkGroups, &window.chkNest, &window.chkTape}) {
                      EXPECT_FALSE(box->Enabled() || box->Value());
                  }
                  EXPECT_TRUE(window.optAllDir.Value());
                  EXPECT_FALSE(window.lstSortBox.Visible());
              }),
              Pages{Page("Design Data", "plates",
                         {"Designs", "", "A.dsn" + gap + "     1   " + kDate,
                          "b.dsn" + gap + "     1   " + kDate, ""})});
}

TEST_F(PrintingListings, SetupIsThePrintersAndCancelPrintsNothing) {
    Prepare(DataKind::kProduction);
    Open<FrmPrint>([&](FrmPrint& window, Keyboard& keyboard) {
        window.cmdSetup.Press();
        EXPECT_EQ(printer.setups, 1);
        keyboard.Press(views::kKeyEscape);
        EXPECT_FALSE(window.IsOpen());
    });
    EXPECT_TRUE(printer.documents.empty());
}

TEST_F(PrintingListings, APrinterThatFailsEndsTheRunWithTheReason) {
    drives.MakeDir(kJob);
    Prepare(DataKind::kProduction, "job1");
    printer.failure = "There is no printer.";
    Print();
    EXPECT_EQ(printer.busySeen, 1);
    EXPECT_EQ(screen.busy, 0);  // and the box was shown with the normal pointer
    EXPECT_EQ(screen.TakeLog(), Log{test::Box(kTitle, "There is no printer.", "OK", "critical")});
    EXPECT_EQ(views::ExitStatus(), 1);
    printer.failure.clear();
    views::ResetApplication();
    EXPECT_EQ(Print().size(), 1u);  // nothing of the first document is left
}

#ifndef _WIN32
TEST_F(PrintingListings, NoSingleEntryEndsAPrint) {
    MakeFile("c:\\tolvarin\\USER\\PROD\\job1\\COMP\\lower", 1);
    MakeFile("c:\\tolvarin\\USER\\PROD\\JOB1\\COMP\\UPPER", 2);
    const auto folder = drives.Path("c:\\tolvarin\\USER\\PROD");
    fs::create_directory(folder / "a:b");
    MakeFile("c:\\tolvarin\\USER\\PROD\\m\\COMP\\x", 2);
    fs::create_directory_symlink("COMP", folder / "n");
    if (geteuid() != 0) fs::permissions(folder / "m" / "COMP", fs::perms::none);
    Prepare(DataKind::kProduction, "job1");
    std::string lines;
    const auto components = [](FrmPrint& window) { Only(window, window.chkComp); };
    for (const auto& page : Print(components)) {
        lines += page[2].substr(0, page[2].find(' ')) + ":" + page[6].substr(0, 6) + " ";
    }
    EXPECT_EQ(lines, geteuid() == 0 ? "job1:UPPER  job1:lower  m:x      n:<No fi "
                                    : "job1:UPPER  job1:lower  m:<Permi n:<No fi ");
    const Pages pages = Print([&](FrmPrint& window) {
        components(window);
        window.optSelDir.Pick();
    });
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(pages[0][6].substr(0, 5), "lower");  // the second one was selected
}
#endif

}  // namespace
