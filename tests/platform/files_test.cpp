// Directories and files on real temporary drives.
#include "platform/files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>

#include "errors/errors.h"
#include "platform/drives.h"
#include "tests/support/temp_drives.h"

#ifndef _WIN32
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

namespace fs = std::filesystem;

using errors::FileErrorKind;
using platform::Dir;
using platform::DirKinds;
using Names = std::vector<std::string>;

// How an operation fails; fails the test when it doesn't.
FileErrorKind KindOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const errors::FileError& failure) {
        EXPECT_FALSE(failure.Reason().empty());
        return failure.Kind();
    }
    ADD_FAILURE() << "nothing failed";
    return FileErrorKind::kOther;
}

class Files : public ::testing::Test {
  protected:
    test::TempDrives drives;
};

TEST_F(Files, DirListsSortedWithoutRegardToCase) {
    for (const char* name : {"beta.txt", "Alpha.TXT", "_x", "gamma"}) {
        drives.Write(std::string("c:\\data\\") + name, "");
    }
    drives.MakeDir("c:\\data\\Sub");
    EXPECT_EQ(Dir("c:\\data\\sub\\*.*", DirKinds::kFilesAndDirectories), (Names{".", ".."}));
    EXPECT_EQ(Dir("c:\\DATA\\*.*", DirKinds::kFiles),
              (Names{"Alpha.TXT", "beta.txt", "gamma", "_x"}));
    EXPECT_EQ(Dir("c:\\data\\*.*", DirKinds::kFilesAndDirectories),
              (Names{".", "..", "Alpha.TXT", "beta.txt", "gamma", "Sub", "_x"}));
    EXPECT_EQ(Dir("c:\\data\\*.txt", DirKinds::kFiles), (Names{"Alpha.TXT", "beta.txt"}));
    EXPECT_EQ(Dir("c:\\data\\?amm*", DirKinds::kFiles), Names{"gamma"});
    EXPECT_EQ(Dir("c:\\missing\\*.*", DirKinds::kFilesAndDirectories), Names{});
    EXPECT_EQ(Dir("c:\\data\\gamma\\*.*", DirKinds::kFiles), Names{});
    EXPECT_EQ(Dir("c:\\*.*", DirKinds::kFilesAndDirectories), Names{"data"});
}

TEST_F(Files, MissingDrivesAndRefusedNamesFail) {
    EXPECT_EQ(KindOf([] { Dir("x:\\*.*", DirKinds::kFiles); }), FileErrorKind::kPathNotFound);
    EXPECT_EQ(KindOf([] { platform::ReadFile("\\no\\drive"); }), FileErrorKind::kPathNotFound);
    EXPECT_EQ(KindOf([] { platform::ReadFile(""); }), FileErrorKind::kPathNotFound);
    EXPECT_EQ(KindOf([] { platform::ReadFile("c:\\missing"); }), FileErrorKind::kFileNotFound);
    for (const char* name : {"a/b", "a?", "a\"", "<", ">", "a|b", "a.", "a ", "..", "CON",
                             "nul.txt", "com1", "LPT9.x", "a\tb", "a:b"}) {
        EXPECT_EQ(KindOf([&] { platform::MkDir(std::string("c:\\") + name); }),
                  FileErrorKind::kPathFileAccess)
            << name;
    }
    for (const char* name : {"a.b", "COM", "COM10", "CONSOLE", "a b", "m\xFCll.x"}) {
        EXPECT_TRUE(platform::IsValidName(name)) << name;
    }
}

TEST_F(Files, MkDirTellsAnExistingNameFromAMissingParent) {
    platform::MkDir("c:\\Job M\xFCller");
    EXPECT_TRUE(drives.Exists("c:\\Job M\xFCller"));
    EXPECT_EQ(KindOf([] { platform::MkDir("c:\\JOB M\xDCLLER"); }), FileErrorKind::kPathFileAccess);
    EXPECT_EQ(KindOf([] { platform::MkDir("c:\\missing\\sub"); }), FileErrorKind::kPathNotFound);
    platform::MkDir("c:\\\\job m\xFCller\\sub");  // a doubled backslash and another spelling
    EXPECT_TRUE(drives.Exists("c:\\Job M\xFCller\\sub"));
    drives.Write("c:\\file", "");
    EXPECT_EQ(KindOf([] { platform::MkDir("c:\\file\\sub"); }), FileErrorKind::kPathNotFound);
}

TEST_F(Files, KillAndRmDirLeaveWhatTheyMayNotTouch) {
    drives.Write("c:\\job\\a.txt", "1");
    drives.Write("c:\\job\\.hidden", "2");
    drives.Write("c:\\job\\kept.txt", "3");
    drives.Write("c:\\job\\sub\\inner.txt", "4");
    drives.SetReadOnly("c:\\job\\kept.txt", true);
    const platform::Folder drive("c:"), job = drive.Sub("JOB");
    EXPECT_EQ(KindOf([&] { job.Kill(); }), FileErrorKind::kPathFileAccess);
    EXPECT_EQ(drives.Count("c:\\job"), 2);
    EXPECT_EQ(drives.Read("c:\\job\\kept.txt"), "3");
    EXPECT_EQ(drives.Read("c:\\job\\sub\\inner.txt"), "4");
    EXPECT_EQ(KindOf([&] { drive.RmDir("job"); }), FileErrorKind::kPathFileAccess);
    EXPECT_EQ(KindOf([&] { job.RmDir("kept.txt"); }), FileErrorKind::kPathNotFound);
    EXPECT_EQ(KindOf([&] { drive.RmDir("missing"); }), FileErrorKind::kPathNotFound);
    EXPECT_EQ(KindOf([&] { drive.Sub("missing"); }), FileErrorKind::kPathNotFound);
    job.Sub("SUB").Kill();
    EXPECT_EQ(KindOf([&] { job.Sub("SUB").Kill(); }), FileErrorKind::kFileNotFound);
    job.RmDir("SUB");
    EXPECT_FALSE(drives.Exists("c:\\job\\sub"));
}

TEST_F(Files, ReplaceFileKeepsSpellingAndLeavesNothingBehind) {
    platform::ReplaceWholeFile("c:\\new.dat", "first");
    platform::ReplaceWholeFile("C:\\NEW.DAT", std::string(3'000'000, 'x'));
    EXPECT_EQ(drives.Read("c:\\new.dat").size(), 3'000'000u);
    EXPECT_EQ(drives.Count("c:\\"), 1);

    drives.SetReadOnly("c:\\new.dat", true);
    EXPECT_EQ(KindOf([] { platform::ReplaceWholeFile("c:\\new.dat", "2"); }),
              FileErrorKind::kPathFileAccess);
    EXPECT_EQ(KindOf([] { platform::ReplaceWholeFile("c:\\missing\\new.dat", "2"); }),
              FileErrorKind::kPathNotFound);
    drives.MakeDir("c:\\folder");
    EXPECT_EQ(KindOf([] { platform::ReplaceWholeFile("c:\\folder", "2"); }),
              FileErrorKind::kPathFileAccess);
    EXPECT_EQ(drives.Read("c:\\new.dat").size(), 3'000'000u);
    EXPECT_EQ(drives.Count("c:\\"), 2);
}

TEST_F(Files, DrivesAreTheEntriesThatCanBeRead) {
    EXPECT_EQ(platform::Drives().size(), 2u);
    EXPECT_TRUE(platform::DriveReady('c') && platform::DriveReady('D'));
    fs::remove(drives.Folder() / "d");
    EXPECT_FALSE(platform::DriveReady('d'));
    EXPECT_EQ(platform::WindowsDirectory(), "c:\\windows");
}

#ifndef _WIN32

TEST_F(Files, NamesThatDifferOnlyInCaseAreNeverGuessed) {
    drives.Write("c:\\JOB\\a", "upper");
    drives.Write("c:\\job\\a", "lower");
    EXPECT_EQ(platform::ReadFile("c:\\job\\a"), "lower");
    EXPECT_EQ(KindOf([] { platform::ReadFile("c:\\Job\\a"); }), FileErrorKind::kPathFileAccess);
    // Even the exact spelling: what is shown in lower case may mean the other.
    const platform::Folder drive("c:");
    EXPECT_EQ(KindOf([&] { drive.Sub("job"); }), FileErrorKind::kPathFileAccess);
    EXPECT_EQ(KindOf([&] { drive.RmDir("job"); }), FileErrorKind::kPathFileAccess);
    EXPECT_EQ(drives.Read("c:\\JOB\\a"), "upper");
}

TEST_F(Files, OfALinkedFileTheLinkIsDeletedAndTheFileSaved) {
    drives.Write("d:\\precious\\file", "keep");
    drives.MakeDir("c:\\job");
    fs::create_symlink(drives.Path("d:\\precious\\file"), drives.Path("c:\\job\\lnk"));
    platform::ReplaceWholeFile("c:\\job\\lnk", "new");
    EXPECT_EQ(drives.Read("d:\\precious\\file"), "new");
    EXPECT_TRUE(fs::is_symlink(drives.Path("c:\\job\\lnk")));
    platform::Folder("c:").Sub("job").Kill();
    EXPECT_EQ(drives.Count("c:\\job"), 0);
    EXPECT_EQ(drives.Read("d:\\precious\\file"), "new");
}

TEST_F(Files, ListsLeaveOutWhatCannotBeAddressed) {
    for (const char* name : {".job1", "JOB1", "job1", "ok"}) {
        drives.Write(std::string("c:\\list\\") + name, "");
    }
    for (const char* name : {"\xCE\xA9", "bad\xFFname", "sub\\dir", "a:b", "end.", "CON"}) {
        std::ofstream(drives.Path("c:\\list") / name);
    }
    EXPECT_EQ(Dir("c:\\list\\*.*", DirKinds::kFiles), (Names{".job1", "JOB1", "job1", "ok"}));
}

TEST_F(Files, ASaveGoesToARegularFileOrIsRefused) {
    const auto kindOf = [&](const char* name) {
        return fs::symlink_status(drives.Path(name)).type();
    };
    ASSERT_EQ(mkfifo(drives.Path("c:\\pipe").c_str(), 0600), 0);
    fs::create_symlink("pipe", drives.Path("c:\\to pipe"));
    fs::create_symlink("nothing", drives.Path("c:\\to nothing"));
    fs::create_symlink("loop", drives.Path("c:\\loop"));
    for (const char* name : {"c:\\pipe", "c:\\to pipe", "c:\\to nothing", "c:\\loop"}) {
        const auto before = kindOf(name);
        EXPECT_EQ(KindOf([&] { platform::ReplaceWholeFile(name, "x"); }),
                  FileErrorKind::kPathFileAccess)
            << name;
        EXPECT_EQ(kindOf(name), before) << name;
    }
    EXPECT_EQ(drives.Count("c:\\"), 4);
}

// Runs in a process of another person, when there can be one; what it returns.
int As(uid_t person, gid_t group, const std::function<int()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 &&
            (setgroups(1, &group) != 0 || setresgid(person, person, person) != 0 ||
             setresuid(person, person, person) != 0)) {
            _exit(9);
        }
        _exit(work());
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(Files, AColleagueOfTheGroupCanStillReadWhatWasSaved) {
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can be two persons";
    const fs::path folder = drives.Path("c:\\"), file = drives.Path("c:\\shared.dat");
    fs::permissions(drives.Folder(), fs::perms(0755));
    drives.Write("c:\\shared.dat", "old");
    ASSERT_EQ(chown(file.c_str(), 60001, 60000) + chown(folder.c_str(), 60001, 60000), 0);
    ASSERT_EQ(chmod(file.c_str(), 0660) + chmod(folder.c_str(), 0770), 0);
    const auto save = [] { platform::ReplaceWholeFile("c:\\shared.dat", "new"); };
    EXPECT_EQ(As(60002, 60000, [&] { return save(), 0; }), 0);
    struct stat info;
    stat(file.c_str(), &info);
    EXPECT_EQ(info.st_gid, 60000u);
    EXPECT_EQ(info.st_mode & 0777, 0660u);
    // Where the group cannot be kept, the file is.
    ASSERT_EQ(chmod(file.c_str(), 0666) + chmod(folder.c_str(), 0777), 0);
    EXPECT_EQ(
        As(60003, 60003, [&] { return KindOf(save) == FileErrorKind::kPathFileAccess ? 0 : 1; }),
        0);
    EXPECT_EQ(drives.Count("c:\\"), 1);
    EXPECT_EQ(drives.Read("c:\\shared.dat"), "new");
}

TEST_F(Files, ADirectoryThatMayNotBeReadHidesNoOtherSpelling) {
    drives.Write("c:\\drop\\PROCESS.DAT", "old");
    fs::permissions(drives.Folder(), fs::perms(0755));
    for (const unsigned mode : {0333u, 0600u}) {
        chmod(drives.Path("c:\\drop").c_str(), mode);
        const int refused = As(60002, 60000, [] {
            const auto save = [] { platform::ReplaceWholeFile("c:\\drop\\process.dat", "x"); };
            return KindOf(save) == FileErrorKind::kPathFileAccess ? 0 : 1;
        });
        EXPECT_EQ(refused, 0) << mode;
    }
    chmod(drives.Path("c:\\drop").c_str(), 0755);
    EXPECT_EQ(drives.Count("c:\\drop"), 1);
}

#endif

}  // namespace
