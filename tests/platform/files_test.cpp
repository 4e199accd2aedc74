// Directories and files on real temporary drives: what is found under which name, what fails in
// which way, and what a save or a deletion leaves alone.
#include "platform/files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <tuple>

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
using namespace platform;
using Kind = errors::FileErrorKind;
using Names = std::vector<std::string>;

constexpr auto kNoFile = Kind::kFileNotFound, kNoPath = Kind::kPathNotFound,
               kRefused = Kind::kPathFileAccess, kNothing = Kind::kOther;

// How an operation fails; kNothing when it doesn't.
Kind KindOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const errors::FileError& failure) {
        EXPECT_FALSE(failure.Reason().empty());
        return failure.Kind();
    }
    return kNothing;
}

class Files : public ::testing::Test {
  protected:
    static void Save(const char* path) { ReplaceWholeFile(path, "new"); }
    test::TempDrives drives;
};

TEST_F(Files, AreListedSortedWithoutRegardToCase) {
    for (const char* name : {"beta.txt", "Alpha.TXT", "_x", "gamma", "Sub\\x"}) {
        drives.Write(std::string("c:\\data\\") + name, "");
    }
    const auto all = DirKinds::kFilesAndDirectories;
    const std::tuple<const char*, DirKinds, Names> cases[] = {
        {"c:\\DATA\\*.*", DirKinds::kFiles, {"Alpha.TXT", "beta.txt", "gamma", "_x"}},
        {"c:\\data\\*.*", all, {".", "..", "Alpha.TXT", "beta.txt", "gamma", "Sub", "_x"}},
        {"c:\\data\\*.txt", all, {"Alpha.TXT", "beta.txt"}},
        {"c:\\data\\?amm*", all, {"gamma"}},
        {"c:\\data\\*a*a.t*", all, {"Alpha.TXT"}},
        {"c:\\data\\sub\\*.*", DirKinds::kFiles, {"x"}},
        {"c:\\missing\\*.*", all, {}},
        {"c:\\data\\gamma\\*.*", all, {}},
        {"c:\\*.*", all, {"data"}},
    };
    for (const auto& [pattern, kinds, names] : cases)
        EXPECT_EQ(Dir(pattern, kinds), names) << pattern;
}

TEST_F(Files, FailInTheirKinds) {
    drives.Write("c:\\job\\a.txt", "1");
    drives.Write("c:\\job\\.hidden", "2");
    drives.Write("c:\\job\\kept.txt", "3");
    drives.Write("c:\\job\\sub\\inner.txt", "4");
    drives.SetReadOnly("c:\\job\\kept.txt", true);
    const Folder drive("c:"), job = drive.Sub("JOB");
    const std::pair<std::function<void()>, Kind> cases[] = {
        {[] { Dir("x:\\*.*", DirKinds::kFiles); }, kNoPath},
        {[] { ReadFile("\\no\\drive"); }, kNoPath},
        {[] { ReadFile(""); }, kNoPath},
        {[] { ReadFile("c:\\missing"); }, kNoFile},
        {[] { FileLen("c:\\job"); }, kNoFile},
        {[] { MkDir("c:\\Job M\xFCller"); }, kNothing},
        {[] { MkDir("c:\\JOB M\xDCLLER"); }, kRefused},
        {[] { MkDir("c:\\\\job m\xFCller\\sub"); }, kNothing},
        {[] { MkDir("c:\\missing\\sub"); }, kNoPath},
        {[] { MkDir("c:\\job\\a.txt\\sub"); }, kNoPath},
        {[] { Save("c:\\job\\A.TXT"); }, kNothing},
        {[] { Save("c:\\job\\kept.txt"); }, kRefused},
        {[] { Save("c:\\missing\\new.dat"); }, kNoPath},
        {[] { Save("c:\\job\\sub"); }, kRefused},
        {[&] { job.Kill(); }, kRefused},
        {[&] { drive.RmDir("job"); }, kRefused},
        {[&] { job.RmDir("kept.txt"); }, kNoPath},
        {[&] { drive.RmDir("missing"); }, kNoPath},
        {[&] { drive.Sub("missing"); }, kNoPath},
        {[&] { job.Sub("SUB").Kill(); }, kNothing},
        {[&] { job.Sub("SUB").Kill(); }, kNoFile},
        {[&] { job.RmDir("SUB"); }, kNothing},
    };
    int n = 0;
    for (const auto& [operation, kind] : cases) EXPECT_EQ(KindOf(operation), kind) << n++;
    EXPECT_EQ(drives.Count("c:\\job"), 1);
    EXPECT_EQ(drives.Read("c:\\job\\kept.txt"), "3");
    EXPECT_TRUE(drives.Exists("c:\\Job M\xFCller\\sub"));
    for (const char* name : {"a/b", "a?", "a\"", "<", ">", "a|b", "a.", "a ", "..", "CON",
                             "nul.txt", "com1", "LPT9.x", "a\tb", "a:b"}) {
        EXPECT_EQ(KindOf([&] { MkDir(std::string("c:\\") + name); }), kRefused) << name;
    }
    for (const char* name : {"a.b", "COM", "COM10", "COM0", "CONSOLE", "a b", "m\xFCll.x"}) {
        EXPECT_TRUE(IsValidName(name)) << name;
    }
    fs::remove(drives.Folder() / "d");
    EXPECT_TRUE(DriveReady('C') && !DriveReady('d') && !DriveReady('['));
}

#ifndef _WIN32

TEST_F(Files, WithNamesThatDifferInCaseOnlyAreNeverGuessed) {
    drives.Write("c:\\JOB\\a", "upper");
    drives.Write("c:\\job\\a", "lower");
    EXPECT_EQ(ReadFile("c:\\job\\a"), "lower");
    EXPECT_EQ(KindOf([] { ReadFile("c:\\Job\\a"); }), kRefused);
    // Even the exact spelling: what is shown in lower case may mean the other.
    EXPECT_EQ(KindOf([] { Folder("c:").Sub("job"); }), kRefused);
    EXPECT_EQ(KindOf([] { Folder("c:").RmDir("job"); }), kRefused);
    // Left out are names that cannot be addressed.
    for (const char* name : {"\xCE\xA9", "bad\xFFname", "sub\\dir", "a:b", "end.", "CON"}) {
        std::ofstream(drives.Path("c:\\job") / name);
    }
    EXPECT_EQ(Dir("c:\\job\\*.*", DirKinds::kFiles), Names{"a"});
}

TEST_F(Files, AreSavedInPlaceOfFilesOnlyAndTheirLinksDeleted) {
    drives.Write("d:\\precious\\file", "keep");
    fs::create_symlink(drives.Path("d:\\precious\\file"), drives.Path("c:\\link"));
    ASSERT_EQ(mkfifo(drives.Path("c:\\pipe").c_str(), 0600), 0);
    for (const char* to : {"pipe", "nothing", "loop"}) {
        fs::create_symlink(to, drives.Path(std::string("c:\\to ") + to));
    }
    fs::rename(drives.Path("c:\\to loop"), drives.Path("c:\\loop"));
    for (const char* name : {"c:\\pipe", "c:\\to pipe", "c:\\to nothing", "c:\\loop"}) {
        const auto before = fs::symlink_status(drives.Path(name)).type();
        EXPECT_EQ(KindOf([&] { Save(name); }), kRefused) << name;
        EXPECT_EQ(fs::symlink_status(drives.Path(name)).type(), before) << name;
    }
    Save("c:\\link");
    EXPECT_TRUE(fs::is_symlink(drives.Path("c:\\link")));
    EXPECT_EQ(drives.Count("c:\\"), 5);
    EXPECT_EQ(KindOf([] { Folder("c:").Kill(); }), kRefused) << "of where the loop leads";
    EXPECT_FALSE(drives.Exists("c:\\link"));
    EXPECT_EQ(drives.Read("d:\\precious\\file"), "new");
}

// Saves in a process of another person; how that fails.
Kind SaveAs(uid_t person, gid_t group, const char* path) {
    const pid_t child = fork();
    if (child == 0) {
        if (setgroups(1, &group) != 0 || setresgid(person, person, person) != 0 ||
            setresuid(person, person, person) != 0) {
            _exit(99);
        }
        _exit(static_cast<int>(KindOf([&] { ReplaceWholeFile(path, "new"); })));
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return static_cast<Kind>(WEXITSTATUS(status));
}

TEST_F(Files, StayOfTheirGroupAndAreNotSavedPastAFolderThatCannotBeRead) {
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can be two persons";
    fs::permissions(drives.Folder(), fs::perms(0755));
    drives.Write("c:\\shared.dat", "old");
    const std::string folder = drives.Path("c:\\"), file = drives.Path("c:\\shared.dat");
    ASSERT_EQ(chown(file.c_str(), 60001, 60000) + chown(folder.c_str(), 60001, 60000), 0);
    ASSERT_EQ(chmod(file.c_str(), 0660) + chmod(folder.c_str(), 0770), 0);
    EXPECT_EQ(SaveAs(60002, 60000, "c:\\shared.dat"), kNothing);
    struct stat info;
    stat(file.c_str(), &info);
    EXPECT_EQ(std::pair(info.st_gid, info.st_mode & 0777), std::pair(60000u, 0660u));
    // Where the group cannot be kept, the file is.
    ASSERT_EQ(chmod(file.c_str(), 0666) + chmod(folder.c_str(), 0777), 0);
    EXPECT_EQ(SaveAs(60003, 60003, "c:\\shared.dat"), kRefused);
    drives.Write("c:\\drop\\PROCESS.DAT", "old");
    for (const unsigned mode : {0333u, 0600u}) {
        chmod(drives.Path("c:\\drop").c_str(), mode);
        EXPECT_EQ(SaveAs(60002, 60000, "c:\\drop\\process.dat"), kRefused) << mode;
    }
    EXPECT_EQ(drives.Count("c:\\drop") + drives.Count("c:\\"), 3);
}

#endif

}  // namespace
