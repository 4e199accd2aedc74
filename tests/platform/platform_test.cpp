// Directories and files on real temporary drives: what is found under which name, what fails in
// which way, and what a save or a deletion leaves alone. The form of dates.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <set>
#include <tuple>

#include "errors/errors.h"
#include "platform/date_forms.h"
#include "platform/files.h"
#include "platform/native.h"
#include "tests/support/environment.h"
#include "tests/support/temp_drives.h"

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

namespace fs = std::filesystem;
using namespace platform;
using Kind = errors::FileErrorKind;
using Names = std::vector<std::string>;

constexpr auto kNoFile = Kind::kFileNotFound, kNoPath = Kind::kPathNotFound,
               kRefused = Kind::kPathFileAccess, kNothing = Kind::kOther;

// What failures have said.
std::set<std::string> g_reasons;

// How an operation fails; kNothing when it doesn't.
Kind KindOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const errors::FileError& failure) {
        g_reasons.insert(failure.Reason());
        return failure.Kind();
    }
    return kNothing;
}

class Files : public ::testing::Test {
  protected:
    static void Save(std::string_view path) { ReplaceWholeFile(path, "new"); }
    test::TempDrives drives;
};

TEST_F(Files, FailInTheirKinds) {
    for (const char* name : {"a.txt", "job\\.hidden", "job\\kept.txt", "sub\\inner.txt"}) {
        drives.Write(std::string("c:\\") + name, "old");
    }
    drives.SetReadOnly("c:\\job\\kept.txt", true);
    fs::remove(drives.Folder() / "d");
    const auto read = [](std::string_view path) { ReadFile(path); };
    const auto length = [](std::string_view path) { FileLen(path); };
    const auto kill = [](std::string_view name) { Folder("c:").Sub(name).Kill(); };
    const auto remove = [](std::string_view name) { Folder("c:").RmDir(name); };
    const std::tuple<std::function<void(std::string_view)>, Kind, Names> cases[] = {
        {MkDir, kNothing, {"c:\\Job M\xFCller", "c:\\\\job m\xFCller\\sub", "c:\\COM"}},
        {MkDir, kNothing, {"c:\\COM10", "c:\\a.b", "c:\\COM0", "c:\\CONSOLE", "c:\\a b"}},
        {MkDir, kNoPath, {"c:\\missing\\sub", "c:\\a.txt\\sub", "d:\\sub", "c", "\\no\\drive"}},
        {MkDir, kRefused, {"c:\\JOB M\xDCLLER", "c:\\a/b", "c:\\a?", "c:\\a\"", "c:\\<", "c:\\>"}},
        {MkDir, kRefused, {"c:\\a|b", "c:\\a.", "c:\\a ", "c:\\..", "c:\\CON", "c:\\nul.txt"}},
        {MkDir, kRefused, {"c:\\com1", "c:\\LPT9.x", "c:\\a\tb", "c:\\a:b", "c:\\a\x1F"}},
        {read, kNoFile, {"c:\\missing"}},
        {length, kNoFile, {"c:\\missing", "c:\\job"}},
        {Save, kNothing, {"c:\\A.TXT"}},
        {Save, kNoPath, {"c:\\missing\\new.dat"}},
        {Save, kRefused, {"c:\\job\\kept.txt", "c:\\job"}},
        {kill, kRefused, {"job"}},
        {kill, kNoPath, {"missing"}},
        {kill, kNothing, {"SUB"}},
        {kill, kNoFile, {"SUB"}},
        {remove, kRefused, {"job"}},
        {remove, kNoPath, {"a.txt", "missing"}},
        {remove, kNothing, {"SUB"}}};
    for (const auto& [operation, kind, paths] : cases) {
        for (const auto& path : paths) {
            EXPECT_EQ(KindOf([&] { operation(path); }), kind) << path;
        }
    }
    for (const char* own :
         {"exists already", "no file matches", "no such directory", "no file of that name",
          "the path does not name a drive", "there is no such drive",
          "the directory that it belongs in is missing"})
        EXPECT_TRUE(g_reasons.contains(own)) << ::testing::PrintToString(g_reasons);
    EXPECT_EQ(drives.Read("c:\\a.txt") + drives.Read("c:\\job\\kept.txt"), "newold");
    EXPECT_EQ(drives.Count("c:\\job") + drives.Count("c:\\"), 10);
    EXPECT_TRUE(drives.Exists("c:\\Job M\xFCller\\sub"));
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
    EXPECT_TRUE(g_reasons.contains("more than one name matches"));
    // Left out are names that cannot be addressed.
    for (const char* name : {"\xCE\xA9", "bad\xFFname", "sub\\dir", "a:b", "end.", "CON"}) {
        std::ofstream(drives.Path("c:\\job") / name);
    }
    EXPECT_EQ(Dir("c:\\job\\*.*", DirKinds::kFiles), Names{"a"});
    EXPECT_EQ(Dir("c:\\*.*", DirKinds::kFilesAndDirectories), (Names{"JOB", "job"}));
}

TEST_F(Files, AreSavedInPlaceOfFilesOnlyAndTheirLinksDeleted) {
    drives.Write("d:\\precious\\file", "keep");
    fs::create_symlink(drives.Path("d:\\precious\\file"), drives.Path("c:\\link"));
    ASSERT_EQ(mkfifo(drives.Path("c:\\pipe").c_str(), 0600), 0);
    fs::create_symlink("pipe", drives.Path("c:\\to pipe"));
    fs::create_symlink("nothing", drives.Path("c:\\to nothing"));
    fs::create_symlink("loop", drives.Path("c:\\loop"));
    for (const char* name : {"c:\\pipe", "c:\\to pipe", "c:\\to nothing", "c:\\loop"}) {
        EXPECT_EQ(KindOf([&] { Save(name); }), kRefused) << name;
        EXPECT_FALSE(is_regular_file(fs::symlink_status(drives.Path(name)))) << name;
    }
    Save("c:\\link");
    EXPECT_TRUE(fs::is_symlink(drives.Path("c:\\link")));
    EXPECT_EQ(drives.Count("c:\\"), 5);
    EXPECT_EQ(KindOf([] { Folder("c:").Kill(); }), kRefused) << "of where the loop leads";
    EXPECT_FALSE(drives.Exists("c:\\link"));
    EXPECT_EQ(drives.Read("d:\\precious\\file"), "new");
}

TEST_F(Files, AreNotSavedIfTheirGroupWouldBeLostOrTheFolderCannotBeRead) {
    drives.Write("c:\\A.DAT", "old");
    const fs::path folder = drives.Path("c:\\"), file = folder / "A.DAT";
    fs::permissions(drives.Folder(), fs::perms(0755));
    fs::permissions(file, fs::perms(0666));
    const bool several = geteuid() == 0;  // only the superuser can be two persons
    for (const unsigned mode : {0777u, 0333u, 0600u}) {
        if (mode == 0777u && (!several || chown(file.c_str(), 60002, 60000) != 0)) continue;
        fs::permissions(folder, fs::perms(mode));
        EXPECT_EQ(several ? seteuid(60001) : 0, 0);
        EXPECT_EQ(KindOf([] { Save("c:\\a.dat"); }), kRefused) << mode;
        const auto opens = [mode](auto open) { return mode != 0333u || KindOf(open) == kRefused; };
        EXPECT_TRUE(opens([] { Folder("c:"); }) && opens([] { Folder::IfThere("c:"); }));
        EXPECT_EQ(several ? seteuid(0) : 0, 0);
    }
    fs::permissions(folder, fs::perms(0700));
    EXPECT_EQ(drives.Count("c:\\"), 1);
}

TEST_F(Files, OfAFirstStartAreOnADriveOfTheOperatorsOwn) {
    const test::Environment data("XDG_DATA_HOME", drives.Folder());
    native::OwnDrives();
    EXPECT_TRUE(fs::is_directory(drives.Folder() / "quarvel/drives/c"));
}

#endif

// In the plain form and a language that the machine need not be set up for.
TEST(DateForms, FollowTheLanguage) {
    const test::TempDrives drives;
    const std::string folder = drives.Folder().string();
    const test::Environment languages("LOCPATH", folder), operators("LC_ALL", "de");
    std::vector<std::pair<std::string, std::string>> cases = {
#ifdef _WIN32
        {"de-DE", "17.11.2026 14:05:09"}, {"en-US", "11/17/2026 2:05:09 PM"}};
#else
        {"C", "11/17/26 14:05:09"}, {"xx_XX.UTF-8", "11/17/26 14:05:09"}};
    const std::string make = "localedef -i de_DE -f ISO-8859-1 " + folder + "/de >/dev/null 2>&1";
    if (std::system(make.c_str()) >= 0 && std::filesystem::exists(folder + "/de")) {
        cases.push_back({"", "17.11.2026 14:05:09"});
    }
#endif
    EXPECT_EQ(SystemDateText(L"1\u202F2\u20093\u00A04\u200E5\u200F6"), "1 2 3 456");
    EXPECT_EQ(SystemDateText(L"1\u0416"), "");
    std::tm time = {};
    time.tm_year = 126, time.tm_mon = 10, time.tm_mday = 17;
    time.tm_hour = 14, time.tm_min = 5, time.tm_sec = 9;
    for (const auto& [language, general] : cases) {
        EXPECT_EQ(DateForms(language).GeneralDate(time), general);
        EXPECT_EQ(DateForms(language).ShortDate(time), general.substr(0, general.find(' ')));
    }
}

}  // namespace
