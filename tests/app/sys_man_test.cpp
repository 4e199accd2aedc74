// The main window on real drives: start-up, listing, deleting, the drive kept for the next start.
#include "app/sys_man.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

#include "app/system_config.h"
#include "platform/files.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/temp_drives.h"
#include "views/application.h"

namespace {

using Log = std::vector<std::string>;
using views::Answer;

const std::string kTitle = "Quarvel System Manager";
const std::string kUser = "c:\\tolvarin\\network\\user1\\nestuser.ini";

std::string NoDataBox(const std::string& drive) {
    return test::Box(
        kTitle,
        "No Nest data on " + drive + "\nWould you like to make " + drive + " a Nest data drive?",
        "Yes/No", "exclamation");
}

class SysManTest : public ::testing::Test {
  protected:
    void MakeDataDrive(const std::string& drive) {
        drives.MakeDir(drive + "\\tolvarin\\USER\\DESIGN");
        drives.MakeDir(drive + "\\tolvarin\\USER\\PROD");
    }
    // Runs the program with a person who does this in its main window.
    void Run(const std::function<void(app::SysMan&)>& steps) {
        views::ResetApplication();
        app::SysMan window;
        screen.windows.push_back([&](views::Form&) { steps(window); });
        views::Guard([&] { views::ShowModal(window); });
    }
    static void Select(app::SysMan& window, const std::string& name) {
        const auto& items = window.lstDirectory.Items();
        const auto found = std::find(items.begin(), items.end(), name);
        ASSERT_NE(found, items.end()) << name;
        window.lstDirectory.Choose(static_cast<int>(found - items.begin()));
    }
    // The directory commands that are enabled, by their first letters.
    static std::string Enabled(const app::SysMan& window) {
        std::string letters;
        for (const auto* button : {&window.cmdMaterial, &window.cmdCreate, &window.cmdDelete,
                                   &window.cmdBackup, &window.cmdPrint}) {
            if (button->Enabled()) letters += button->Caption()[0];
        }
        return letters;
    }
    test::TempDrives drives;
    test::ScriptedScreen screen;
};

TEST_F(SysManTest, StartsWithoutAnyConfiguration) {
    MakeDataDrive("c:");
    Run([](app::SysMan& window) {
        EXPECT_EQ(window.Caption(), "Quarvel System Manager - 2.03");
        EXPECT_EQ(app::TheConfig().NestRootDir, "\\tolvarin");
        EXPECT_EQ(app::TheConfig().UserProfilePath(), kUser);
        EXPECT_EQ(app::TheConfig().ConfigFilePath, "c:\\windows\\nestcfg.ini");
        EXPECT_EQ(window.drvList.Drive(), "c:");
        EXPECT_TRUE(window.optDesign.Value());
    });
    EXPECT_EQ(screen.TakeLog(), Log{});
    EXPECT_EQ(views::ExitStatus(), 0);
}

TEST_F(SysManTest, ReadsTheConfigurationInItsWidths) {
    drives.Write("c:\\WINDOWS\\NestCfg32.INI",
                 "[System]\r\nNestRootDir= \\Plant A \r\nNestHomeDrive=d:\\\r\n");
    drives.Write("d:\\plant a\\SYSTEM\\nest.ini", "[userinfo]\nusernumber=123\n");
    drives.Write("d:\\plant a\\network\\USER12\\nestuser.ini",
                 "; kept\r\n[Nest]\r\nNestCheck=1\r\n[SystemManager]\r\nCurrentSysManDrive=C:\r\n");
    drives.MakeDir("c:\\plant a\\user\\design\\Job");
    Run([](app::SysMan& window) {
        EXPECT_EQ(app::TheConfig().NestRootDir, "\\Plant A");
        EXPECT_EQ(app::TheConfig().NestHomeDrive, "d:");
        EXPECT_EQ(app::TheConfig().UserNumber, "12");
        EXPECT_EQ(window.drvList.Drive(), "c:");
        EXPECT_EQ(window.lstDirectory.Items(), Log{"job"});
    });
    EXPECT_EQ(drives.Read("d:\\plant a\\network\\USER12\\nestuser.ini"),
              "; kept\r\n[Nest]\r\nNestCheck=1\r\n[SystemManager]\r\nCurrentSysManDrive=c:\r\n");
    EXPECT_EQ(app::StripNulls(std::string("\0c:\0 x\0", 7)), "c:  x");
}

TEST_F(SysManTest, ListsAndEnablesByKindAndSelection) {
    MakeDataDrive("c:");
    for (const char* name :
         {"DESIGN\\Flanges", "DESIGN\\BRACKETS", "PROD\\JOB M\xDCLL", "PROD\\P10"}) {
        drives.MakeDir(std::string("c:\\tolvarin\\USER\\") + name);
    }
    drives.Write("c:\\tolvarin\\USER\\PROD\\Notes.TXT", "");  // listed like a directory
    drives.MakeDir("d:\\Tolvarin\\User");
    Run([&](app::SysMan& window) {
        EXPECT_EQ(window.lstDirectory.Items(), (Log{"brackets", "flanges"}));
        EXPECT_EQ(Enabled(window), "CB");
        Select(window, "flanges");
        EXPECT_EQ(Enabled(window), "CDBP");
        window.optProduction.Pick();
        EXPECT_EQ(window.lstDirectory.Items(), (Log{"job m\xFCll", "notes.txt", "p10"}));
        EXPECT_EQ(window.lstDirectory.ListIndex(), -1);
        EXPECT_EQ(Enabled(window), "CB");
        Select(window, "p10");
        EXPECT_EQ(Enabled(window), "MCDBP");
        window.drvList.SetDrive("d");  // a data area without the folder of the kind: no question
        EXPECT_EQ(window.lstDirectory.Items(), Log{});
        drives.MakeDir("c:\\tolvarin\\network\\user1");
        window.cmdClose.Press();
        EXPECT_FALSE(window.IsOpen());
    });
    EXPECT_EQ(drives.Read(kUser), "[SystemManager]\r\nCurrentSysManDrive=d:\r\n");
    EXPECT_EQ(screen.TakeLog(), Log{});
}

TEST_F(SysManTest, ADriveWithoutDataIsOfferedOnce) {
    drives.MakeDir("c:\\tolvarin\\network\\user1");
    screen.answers = {Answer::kNo};
    Run([](app::SysMan& window) { EXPECT_EQ(window.lstDirectory.Items(), Log{}); });
    EXPECT_EQ(screen.TakeLog(), Log{NoDataBox("c:")});

    MakeDataDrive("c:");
    drives.MakeDir("c:\\tolvarin\\USER\\DESIGN\\ONE");
    screen.answers = {Answer::kNo, Answer::kYes};
    Run([&](app::SysMan& window) {
        window.drvList.SetDrive("d:");  // No: back to the home drive
        EXPECT_EQ(window.drvList.Drive(), "c:");
        EXPECT_EQ(window.lstDirectory.Items(), Log{"one"});
        window.drvList.SetDrive("d:");  // Yes: made, and empty
        EXPECT_EQ(window.drvList.Drive(), "d:");
        EXPECT_EQ(window.lstDirectory.Items(), Log{});
    });
    EXPECT_EQ(screen.TakeLog(), (Log{NoDataBox("d:"), NoDataBox("d:")}));
    for (const char* made : {"PROD", "DESIGN"}) {
        EXPECT_TRUE(drives.Exists(std::string("d:\\tolvarin\\USER\\") + made));
    }
}

TEST_F(SysManTest, ADriveThatCannotBeMadeOneEndsTheRunInOrder) {
    MakeDataDrive("c:");
    drives.MakeDir("c:\\tolvarin\\network\\user1");
    drives.MakeDir("d:\\tolvarin");  // so making it fails
    screen.answers = {Answer::kYes};
    Run([](app::SysMan& window) { views::Guard([&] { window.drvList.SetDrive("d:"); }); });
    EXPECT_EQ(screen.TakeLog(),
              (Log{NoDataBox("d:"),
                   test::Box(kTitle, "d:\\tolvarin: exists already", "OK", "critical")}));
    EXPECT_EQ(views::ExitStatus(), 1);
    EXPECT_EQ(drives.Read(kUser), "[SystemManager]\r\nCurrentSysManDrive=d:\r\n");
}

TEST_F(SysManTest, ADriveThatGoesAwayIsAskedAboutAndWithoutAnyTheRunEnds) {
    MakeDataDrive("c:");
    MakeDataDrive("d:");
    screen.answers = {Answer::kNo};
    Run([&](app::SysMan& window) {
        window.drvList.SetDrive("d:");
        std::filesystem::remove_all(drives.Folder() / "d");
        window.optProduction.Pick();
        EXPECT_EQ(window.drvList.Drive(), "c:");
        views::Guard([&] { window.drvList.SetDrive("d:"); });
    });
    EXPECT_EQ(
        screen.TakeLog(),
        (Log{NoDataBox("d:"), test::Box(kTitle, "d: there is no such drive", "OK", "critical")}));
    std::filesystem::remove_all(drives.Folder() / "c");
    Run([](app::SysMan&) { ADD_FAILURE() << "the window is shown"; });
    screen.windows.clear();
    EXPECT_EQ(screen.TakeLog(),
              Log{test::Box(kTitle,
                            "There is no drive. Drives are the entries a to z of the folder " +
                                drives.Folder().string() + ".",
                            "OK", "critical")});
}

class Deleting : public SysManTest {
  protected:
    Deleting() {
        MakeDataDrive("c:");
        for (const char* folder : {"COMP", "NEST", "TAPE", "GROUP"}) {
            drives.Write("c:\\tolvarin\\USER\\PROD\\JOB\\" + std::string(folder) + "\\File.1", "x");
        }
        drives.Write("c:\\tolvarin\\USER\\PROD\\JOB\\MATERIAL.DAT", "x");
    }
    void Delete(const std::string& name, bool design, const std::deque<Answer>& given) {
        screen.answers = given;
        Run([&](app::SysMan& window) {
            (design ? window.optDesign : window.optProduction).Pick();
            Select(window, name);
            window.cmdDelete.Press();
            EXPECT_EQ(Enabled(window), given.back() == Answer::kYes ? "CB" : "MCDBP");
            left = window.lstDirectory.Items();
        });
    }
    Log left;
};

TEST_F(Deleting, AsksTwiceAndDeletesTheWholeDirectory) {
    const auto question = [](const char* text) {
        return test::Box(kTitle, text, "Yes/No", "question");
    };
    const std::string first = question("Are you sure you want to delete the job directory?");
    const std::string second = question(
        "Are you REALLY sure you want to delete the job directory?\n(This is pretty serious!)");
    Delete("job", false, {Answer::kNo});
    EXPECT_EQ(screen.TakeLog(), Log{first});
    Delete("job", false, {Answer::kYes, Answer::kNo});
    EXPECT_EQ(screen.TakeLog(), (Log{first, second}));
    EXPECT_EQ(drives.Count("c:\\tolvarin\\USER\\PROD\\JOB"), 5);
    Delete("job", false, {Answer::kYes, Answer::kYes});
    EXPECT_EQ(screen.TakeLog(), (Log{first, second}));
    EXPECT_EQ(left, Log{});
    EXPECT_EQ(drives.Count("c:\\tolvarin\\USER\\PROD"), 0);
}

TEST_F(Deleting, LeavesWhatIsProtectedNestedOrOfTheOtherKind) {
    const std::string job = "c:\\tolvarin\\USER\\PROD\\JOB";
    drives.MakeDir(job + "\\COMP\\nested");
    drives.SetReadOnly(job + "\\TAPE\\File.1", true);
    Delete("job", false, {Answer::kYes, Answer::kYes});
    EXPECT_EQ(left, Log{"job"});
    EXPECT_FALSE(drives.Exists(job + "\\NEST") || drives.Exists(job + "\\MATERIAL.DAT"));
    EXPECT_FALSE(drives.Exists(job + "\\COMP\\File.1"));
    EXPECT_EQ(drives.Read(job + "\\TAPE\\File.1"), "x");

    const std::string design = "c:\\tolvarin\\USER\\DESIGN\\PLATES";
    drives.Write(design + "\\GEOMETRY\\a", "x");
    drives.Write(design + "\\COMP\\b", "x");  // no folder of a design directory
    Delete("plates", true, {Answer::kYes, Answer::kYes});
    EXPECT_EQ(left, Log{"plates"});
    EXPECT_FALSE(drives.Exists(design + "\\GEOMETRY"));
    EXPECT_EQ(drives.Read(design + "\\COMP\\b"), "x");
}

#ifndef _WIN32
TEST_F(Deleting, OnlyWhatWasListedIsDeleted) {
    const auto folder = drives.Path("c:\\tolvarin\\USER\\PROD");
    std::filesystem::create_directory(folder / "JOB\\COMP");  // no path: the name has a backslash
    std::filesystem::create_directory(folder / " JOB");
    Run([&](app::SysMan& window) {
        window.optProduction.Pick();
        EXPECT_EQ(window.lstDirectory.Items(), (Log{"job", "job"}));
        screen.answers = {Answer::kYes, Answer::kYes};
        window.lstDirectory.Choose(0);
        window.cmdDelete.Press();  // which of the two is meant?
        EXPECT_TRUE(drives.Exists("c:\\tolvarin\\USER\\PROD\\JOB\\COMP\\File.1"));
        std::filesystem::remove_all(folder / "JOB");
        screen.answers = {Answer::kYes, Answer::kYes};
        window.lstDirectory.Choose(0);
        window.cmdDelete.Press();
        EXPECT_FALSE(std::filesystem::exists(folder / " JOB"));
    });
}
#endif

TEST_F(SysManTest, ASecondInstanceEndsBeforeItReadsAnything) {
    MakeDataDrive("c:");
    drives.MakeDir("c:\\tolvarin\\network\\user1");
    Run([&](app::SysMan&) {
        app::TheConfig() = {};
        app::SysMan second;
        views::ShowModal(second);
        EXPECT_FALSE(second.IsOpen());
        EXPECT_EQ(app::TheConfig().NestRootDir, "");
        EXPECT_FALSE(views::ApplicationEnded());  // of the first
        app::TheConfig().NestHomeDrive = "c:";
    });
    EXPECT_EQ(screen.TakeLog(), Log{test::Box(kTitle, "Quarvel System Manager is already running",
                                              "OK", "exclamation")});
}

}  // namespace
