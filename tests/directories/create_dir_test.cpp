// Making data directories on real drives.
#include "directories/create_dir.h"

#include "tests/directories/directory_windows.h"
#include "views/view_procedures.h"

namespace {

using directories::CreateDir;
using directories::DataKind;
using test::Keyboard;
using test::kTitle;
using test::Log;

const std::string kDesign = "c:\\tolvarin\\USER\\DESIGN\\";
const std::string kProduction = "c:\\tolvarin\\USER\\PROD\\";
const std::string kInvalidBox =
    test::Box(kTitle, "The directory name is invalid.", "OK", "information");

class CreatingDirectories : public test::DirectoryWindows {
  protected:
    CreatingDirectories() { drives.Write("c:\\tolvarin\\SYSTEM\\MATERIAL.DAT", "; default\r\n"); }

    // Types a name, presses Enter and does the steps.
    void Enter(
        const std::string& name, const std::function<void(CreateDir&)>& steps = [](CreateDir&) {}) {
        Open<CreateDir>([&](CreateDir& window, Keyboard& keyboard) {
            EXPECT_EQ(window.Focus(), &window.txtDirName);
            EXPECT_EQ(window.txtDirName.Text(), "");
            keyboard.Type(name);
            keyboard.Press(views::kKeyEnter);
            steps(window);
        });
    }
    static std::string AlreadyThere(const std::string& name) {
        return test::Box(kTitle, "The directory " + name + " already exists", "OK", "exclamation");
    }
};

TEST_F(CreatingDirectories, AProductionDirectoryHasItsFoldersAndTheDefaultList) {
    drives.MakeDir(kProduction + "A1");
    Prepare(DataKind::kProduction);
    Enter("  Job 1.b  ", [&](CreateDir& window) {
        EXPECT_FALSE(window.IsOpen());
        EXPECT_EQ(window.txtDirName.Text(), "job 1.b");
    });
    EXPECT_EQ(drives.Count(kProduction + "Job 1.b"), 5);
    for (const char* folder : {"COMP", "GROUP", "NEST", "TAPE"}) {
        EXPECT_EQ(drives.Count(kProduction + "Job 1.b\\" + folder), 0);
    }
    EXPECT_EQ(drives.Read(kProduction + "Job 1.b\\MATERIAL.DAT"), "; default\r\n");
    EXPECT_EQ(main.lstDirectory.Items(), (Log{"a1", "job 1.b"}));
    EXPECT_EQ(main.lstDirectory.SelectedText(), "job 1.b");
    EXPECT_TRUE(main.cmdDelete.Enabled() && main.cmdPrint.Enabled() && main.cmdMaterial.Enabled());
    EXPECT_TRUE(materiallist::Shared().DirectoryCreated);
    EXPECT_EQ(screen.TakeLog(), Log{});
}

TEST_F(CreatingDirectories, OnAnotherDriveTheListStillComesFromTheHomeDrive) {
    Prepare(DataKind::kDesign, "", "d:");
    Enter("PLATES");
    EXPECT_EQ(drives.Count("d:\\tolvarin\\USER\\DESIGN\\PLATES"), 1);
    EXPECT_EQ(drives.Count("d:\\tolvarin\\USER\\DESIGN\\PLATES\\GEOMETRY"), 0);
    EXPECT_EQ(main.lstDirectory.SelectedText(), "plates");
    EXPECT_FALSE(main.cmdMaterial.Enabled() || materiallist::Shared().DirectoryCreated);
    Prepare(DataKind::kProduction, "", "d:");
    Enter("M\xDCLL");
    EXPECT_EQ(drives.Read("d:\\tolvarin\\USER\\PROD\\M\xDCLL\\MATERIAL.DAT"), "; default\r\n");
    EXPECT_EQ(main.lstDirectory.SelectedText(), "m\xFCll");
#ifndef _WIN32  // Wine hides such names
    Enter(".job1");
    EXPECT_EQ(main.lstDirectory.SelectedText(), ".job1");
#endif
}

TEST_F(CreatingDirectories, InvalidNamesAreRefusedWithABeep) {
    Prepare(DataKind::kProduction);
    for (const std::string& name :
         {std::string("a*b"), std::string("a\\b"), std::string("c:"), std::string("a,b"),
          std::string(51, 'x'), std::string(200, 'y')}) {
        Enter(name, [&](CreateDir& window) {
            EXPECT_TRUE(window.IsOpen());
            EXPECT_EQ(window.Focus(), &window.txtDirName);
            EXPECT_EQ(window.txtDirName.SelStart(), 0u);
            EXPECT_EQ(window.txtDirName.SelLength(), name.size());
        });
        EXPECT_EQ(screen.TakeLog(), (Log{"beep", kInvalidBox})) << name;
    }
    Enter("   ", [](CreateDir& window) { EXPECT_TRUE(window.IsOpen()); });
    EXPECT_EQ(drives.Count(kProduction), 0);
    EXPECT_FALSE(materiallist::Shared().DirectoryCreated);

    const std::string longest(50, 'x');
    Enter(" " + longest + " ");
    EXPECT_EQ(main.lstDirectory.SelectedText(), longest);
    EXPECT_EQ(screen.TakeLog(), Log{});
}

TEST_F(CreatingDirectories, WhatIsThereIsLeftAndNamesTheSystemRefusesCountAsThere) {
    drives.Write(kProduction + "JOB1\\MATERIAL.DAT", "; own\r\n");
    drives.Write(kProduction + "notes", "");
    Prepare(DataKind::kProduction);
    for (const char* name : {"job1", "Job1", "NOTES", "a?b", "con", "end."}) {
        Enter(name, [&](CreateDir& window) {
            EXPECT_TRUE(window.IsOpen());
            EXPECT_EQ(window.Focus(), &window.cmdOK);
            EXPECT_EQ(window.txtDirName.SelLength(), std::string(name).size());
        });
        EXPECT_EQ(screen.TakeLog(), Log{AlreadyThere(name)});
    }
    EXPECT_EQ(drives.Read(kProduction + "JOB1\\MATERIAL.DAT"), "; own\r\n");
    EXPECT_EQ(drives.Count(kProduction + "JOB1"), 1);
    EXPECT_EQ(drives.Count(kProduction), 2);

    Prepare(DataKind::kDesign);  // the other kind has a name of its own
    Enter("job1");
    EXPECT_TRUE(drives.Exists(kDesign + "job1\\GEOMETRY"));
}

TEST_F(CreatingDirectories, CancelOrItsKeyClearsTheFlagEvenAfterARefusedName) {
    Prepare(DataKind::kProduction);
    materiallist::Shared().DirectoryCreated = true;
    Enter("a*b", [](CreateDir& window) { window.cmdCancel.Press(); });
    EXPECT_FALSE(materiallist::Shared().DirectoryCreated);
    materiallist::Shared().DirectoryCreated = true;
    Open<CreateDir>([](CreateDir& window, Keyboard& keyboard) {
        keyboard.Type("job1");
        keyboard.Press(views::kKeyEscape);
        EXPECT_FALSE(window.IsOpen());
    });
    EXPECT_FALSE(materiallist::Shared().DirectoryCreated);
    EXPECT_EQ(drives.Count(kProduction), 0);
    screen.TakeLog();
}

TEST_F(CreatingDirectories, AMissingDefaultListEndsTheRunAfterTheFoldersAreMade) {
    std::filesystem::remove(drives.Path("c:\\tolvarin\\SYSTEM\\MATERIAL.DAT"));
    Prepare(DataKind::kProduction);
    Enter("JOB1");
    const Log log = screen.TakeLog();
    ASSERT_EQ(log.size(), 1u);
    EXPECT_EQ(log[0].rfind(kTitle + "|c:\\tolvarin\\SYSTEM\\MATERIAL.DAT: ", 0), 0u) << log[0];
    EXPECT_EQ(views::ExitStatus(), 1);
    EXPECT_EQ(drives.Count(kProduction + "JOB1"), 4);
    EXPECT_FALSE(materiallist::Shared().DirectoryCreated);
}

}  // namespace
