// The backup batch file, byte for byte, and how it is started.
#include "directories/backup.h"

#include "tests/directories/directory_windows.h"
#include "tests/support/environment.h"
#include "views/view_procedures.h"

#ifdef _WIN32
#include <windows.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#endif

namespace {

using directories::DataKind;
using directories::FrmBackup;
using test::Keyboard;
using test::kTitle;
using test::Log;
using views::Answer;

const std::string kBatchFile = "c:\\tolvarin\\SYSTEM\\QVBACKUP.BAT";
const std::string kInsertBox =
    test::Box(kTitle, "Please insert a floppy disk", "OK/Cancel", "none");

std::string NotStarted(const std::string& reason, const std::string& icon) {
    return test::Box(
        kTitle, "The batch file " + kBatchFile + " was written.\nIt was not started: " + reason,
        "OK", icon);
}

class BackingUp : public test::DirectoryWindows {
  protected:
    BackingUp() {
        drives.MakeDir("a:");
        drives.MakeDir("c:\\tolvarin\\USER\\PROD\\JOB1");
        drives.MakeDir("c:\\tolvarin\\USER\\DESIGN\\PLATES");
    }
    // Presses OK with the chosen options and gives back the batch file.
    std::string Written(const std::function<void(FrmBackup&)>& choose = [](FrmBackup&) {}) {
        std::string bytes;
        Open<FrmBackup>([&](FrmBackup& window, Keyboard& keyboard) {
            choose(window);
            keyboard.Press(views::kKeyEnter);
            EXPECT_TRUE(window.IsOpen());
            bytes = drives.Read(kBatchFile);
        });
        return bytes;
    }
};

#ifndef _WIN32

const std::string kNoInterpreter =
    NotStarted("this computer has no command interpreter for it.", "information");

TEST_F(BackingUp, TheSelectedDirectory) {
    drives.Write(kBatchFile, std::string(10000, 'x'));
    Prepare(DataKind::kProduction, "job1");
    EXPECT_EQ(Written([](FrmBackup& window) {
                  EXPECT_TRUE(window.optSelectedDir.Enabled() && window.optSelectedDir.Value());
                  EXPECT_EQ(window.drvDest.Drive(), "a:");
              }),
              "@echo off\r\n"
              "echo Backing Up job1 to a:\r\n"
              "backup c:\\tolvarin\\USER\\PROD\\job1\\*.* a: /s\r\n"
              "pause\r\n");
    EXPECT_EQ(screen.TakeLog(), Log{kNoInterpreter});
    EXPECT_EQ(drives.Count("c:\\tolvarin\\SYSTEM"), 1);
}

TEST_F(BackingUp, AllDirectoriesOfAKindAndAllData) {
    Prepare(DataKind::kProduction);
    EXPECT_EQ(Written([](FrmBackup& window) {
                  EXPECT_FALSE(window.optSelectedDir.Enabled());
                  EXPECT_TRUE(window.optAllDirectories.Value());
              }),
              "@echo off\r\necho Backing Up Production Data to a:\r\n"
              "backup c:\\tolvarin\\USER\\PROD\\*.* a: /s\r\npause\r\n");
    Prepare(DataKind::kDesign, "plates");
    // A hard disk as destination, which may even be the one that is backed up.
    EXPECT_EQ(Written([](FrmBackup& window) {
                  window.optAllData.Pick();
                  window.drvDest.SetDrive("D:");
              }),
              "@echo off\r\necho Backing Up All Data to d:\r\n"
              "backup c:\\tolvarin\\USER\\*.* d: /s\r\npause\r\n");
    EXPECT_EQ(screen.TakeLog(), (Log{kNoInterpreter, kNoInterpreter}));
}

TEST_F(BackingUp, ABatchFileThatCannotBeWrittenEndsTheRun) {
    drives.Write(kBatchFile, "old");
    drives.SetReadOnly(kBatchFile, true);
    Prepare(DataKind::kDesign);
    Open<FrmBackup>([&](FrmBackup& window, Keyboard& keyboard) {
        keyboard.Press(views::kKeyEnter);
        EXPECT_FALSE(window.IsOpen());
    });
    EXPECT_EQ(screen.TakeLog(),
              Log{test::Box(kTitle, kBatchFile + ": is read-only", "OK", "critical")});
    EXPECT_EQ(views::ExitStatus(), 1);
    EXPECT_EQ(drives.Read(kBatchFile), "old");
}

#else

std::string Recorded(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// The system's own command interpreter runs the batch file and finds this `backup` in the path.
TEST_F(BackingUp, TheCommandInterpreterRunsTheBackupCommand) {
    const std::filesystem::path record = drives.Folder() / "arguments.txt";
    drives.Write("d:\\bin\\backup.bat", "@echo %CD% %PATH% %*>\"" + record.string() + "\"\r\n");
    const char* path = std::getenv("PATH");
    const test::Environment search(
        "PATH", drives.Path("d:\\bin").string() + ";" + (path != nullptr ? path : ""));
    Prepare(DataKind::kProduction, "job1");
    EXPECT_EQ(Written(),
              "@echo off\r\necho Backing Up job1 to a:\r\n"
              "backup c:\\tolvarin\\USER\\PROD\\job1\\*.* a: /s\r\npause\r\n");
    for (int tries = 0; tries < 300 && Recorded(record).empty(); ++tries) Sleep(100);
    // It works beside its batch file, and the program's own folder comes first in the path.
    const std::string said = Recorded(record);
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::string own = std::filesystem::path(program).parent_path().string();
    EXPECT_NE(said.find("\\SYSTEM " + own + ";"), said.npos) << said;
    EXPECT_TRUE(said.ends_with(" c:\\tolvarin\\USER\\PROD\\job1\\*.* a: /s\r\n")) << said;
    EXPECT_EQ(screen.TakeLog(), Log{});
}

#endif

TEST_F(BackingUp, NamesThatTheCommandInterpreterWouldActOnAreWrittenButNotStarted) {
    // No directory that can be addressed has the others in its name.
    const std::string specials = "&^%!";
    for (const char special : specials) {
        const std::string name = std::string("a") + special + "b";
        drives.MakeDir("c:\\tolvarin\\USER\\PROD\\" + name);
        Prepare(DataKind::kProduction, name);
        const std::string source = "c:\\tolvarin\\USER\\PROD\\" + name + "\\*.*";
        EXPECT_EQ(Written(), "@echo off\r\necho Backing Up " + name + " to a:\r\nbackup " + source +
                                 " a: /s\r\npause\r\n");
        EXPECT_EQ(screen.TakeLog(),
                  Log{NotStarted("the path " + source +
                                     " has a character that the command interpreter would act on.",
                                 "exclamation")});
    }
}

TEST_F(BackingUp, WithoutADiskInBothDrivesItIsAskedForAgainAndAgain) {
    std::filesystem::remove(drives.Folder() / "a");
    Prepare(DataKind::kDesign);
    screen.answers = {Answer::kOk, Answer::kOk, Answer::kCancel};
    Open<FrmBackup>([](FrmBackup&, Keyboard&) { ADD_FAILURE() << "the dialog is shown"; });
    EXPECT_EQ(screen.TakeLog(), (Log{kInsertBox, kInsertBox, kInsertBox}));
    EXPECT_FALSE(drives.Exists(kBatchFile));

    drives.MakeDir("b:");
    Open<FrmBackup>([](FrmBackup& window, Keyboard&) {
        EXPECT_EQ(window.drvDest.Drive(), "b:");
        EXPECT_EQ(window.Focus(), &window.optAllDirectories);
    });
    EXPECT_EQ(screen.TakeLog(), Log{});
}

}  // namespace
