// Directories and files on real temporary drives.
#include "platform/files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>

#include "platform/drives.h"
#include "platform/errors.h"
#include "tests/support/temp_drives.h"

namespace {

using platform::Dir;
using platform::DirKinds;
using platform::FileErrorKind;
using Names = std::vector<std::string>;

// How an operation fails; fails the test when it doesn't.
FileErrorKind KindOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const platform::FileError& failure) {
        EXPECT_FALSE(failure.Reason().empty());
        EXPECT_EQ(std::string(failure.what()).rfind(failure.Path(), 0), 0u) << failure.what();
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

TEST_F(Files, AnEmptyDirectoryStillHoldsItsDots) {
    drives.MakeDir("c:\\empty");
    EXPECT_EQ(Dir("c:\\empty\\*.*", DirKinds::kFilesAndDirectories), (Names{".", ".."}));
    EXPECT_EQ(Dir("c:\\empty\\*.*", DirKinds::kFiles), Names{});
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
    EXPECT_EQ(KindOf([] { platform::Kill("c:\\JOB\\*.*"); }), FileErrorKind::kPathFileAccess);
    EXPECT_EQ(drives.Count("c:\\job"), 2);
    EXPECT_EQ(drives.Read("c:\\job\\kept.txt"), "3");
    EXPECT_EQ(drives.Read("c:\\job\\sub\\inner.txt"), "4");
    EXPECT_EQ(KindOf([] { platform::RmDir("c:\\job"); }), FileErrorKind::kPathFileAccess);
    EXPECT_EQ(KindOf([] { platform::RmDir("c:\\job\\kept.txt"); }), FileErrorKind::kPathFileAccess);
    EXPECT_EQ(KindOf([] { platform::RmDir("c:\\missing"); }), FileErrorKind::kPathNotFound);
    EXPECT_EQ(KindOf([] { platform::Kill("c:\\missing\\*.*"); }), FileErrorKind::kFileNotFound);
    platform::Kill("c:\\job\\sub\\INNER.*");
    EXPECT_EQ(KindOf([] { platform::Kill("c:\\job\\sub\\*.*"); }), FileErrorKind::kFileNotFound);
    platform::RmDir("c:\\job\\SUB");
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

TEST_F(Files, CopiesAndMeasures) {
    drives.Write("c:\\material.dat", "12345\r\n");
    drives.SetReadOnly("c:\\material.dat", true);
    platform::FileCopy("c:\\MATERIAL.DAT", "d:\\MATERIAL.DAT");
    EXPECT_EQ(drives.Read("d:\\MATERIAL.DAT"), "12345\r\n");
    platform::ReplaceWholeFile("d:\\material.dat",
                               "");  // the copy of a read-only list can be saved
    EXPECT_EQ(platform::FileLen("c:\\material.dat"), 7u);
    EXPECT_EQ(KindOf([] { platform::FileLen("c:\\no"); }), FileErrorKind::kFileNotFound);
    EXPECT_TRUE(platform::FileExists("c:\\Material.Dat"));
    EXPECT_FALSE(platform::FileExists("c:\\"));
    EXPECT_GE(platform::FileDateTime("d:\\material.dat").tm_year, 124);
}

TEST_F(Files, DrivesAreTheEntriesThatCanBeRead) {
    const auto found = platform::Drives();
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].letter, 'c');
    EXPECT_EQ(found[1].letter, 'd');
    EXPECT_TRUE(platform::DriveReady('D'));
    std::filesystem::remove(drives.Folder() / "d");
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
    EXPECT_EQ(KindOf([] { platform::Kill("c:\\job\\*.*"); }), FileErrorKind::kPathFileAccess);
    EXPECT_EQ(KindOf([] { platform::RmDir("c:\\job"); }), FileErrorKind::kPathFileAccess);
    EXPECT_EQ(drives.Read("c:\\JOB\\a"), "upper");
}

TEST_F(Files, LinksAreNotFollowedIntoDeletion) {
    drives.Write("d:\\precious\\file", "keep");
    drives.Write("c:\\job\\own", "");
    std::filesystem::create_symlink(drives.Path("d:\\precious"), drives.Path("c:\\job\\COMP"));
    std::filesystem::create_symlink(drives.Path("d:\\precious\\file"), drives.Path("c:\\job\\lnk"));
    EXPECT_EQ(KindOf([] { platform::Kill("c:\\job\\COMP\\*.*"); }), FileErrorKind::kPathFileAccess);
    EXPECT_EQ(KindOf([] { platform::RmDir("c:\\job\\COMP"); }), FileErrorKind::kPathFileAccess);
    platform::Kill("c:\\job\\*.*");  // the link to the file goes, not the file
    EXPECT_EQ(drives.Count("c:\\job"), 1);
    EXPECT_EQ(drives.Read("d:\\precious\\file"), "keep");
    // A save goes through a link, which stays one.
    std::filesystem::create_symlink(drives.Path("d:\\precious\\file"), drives.Path("c:\\lnk"));
    platform::ReplaceWholeFile("c:\\lnk", "new");
    EXPECT_EQ(drives.Read("d:\\precious\\file"), "new");
    EXPECT_TRUE(platform::IsLink("c:\\lnk"));
}

TEST_F(Files, PermissionsSurviveASaveAndForeignNamesAreLeftOut) {
    drives.Write("c:\\data.dat", "");
    namespace fs = std::filesystem;
    fs::permissions(drives.Path("c:\\data.dat"), fs::perms(0640));
    platform::ReplaceWholeFile("c:\\data.dat", "x");
    EXPECT_EQ(fs::status(drives.Path("c:\\data.dat")).permissions(), fs::perms(0640));
    drives.Write("c:\\list\\ok", "");
    std::ofstream(drives.Path("c:\\list") / "\xCE\xA9");     // a letter the set lacks
    std::ofstream(drives.Path("c:\\list") / "bad\xFFname");  // no text at all
    EXPECT_EQ(Dir("c:\\list\\*.*", DirKinds::kFiles), Names{"ok"});
    platform::Kill("c:\\list\\*.*");
    EXPECT_EQ(drives.Count("c:\\list"), 0);
}

#endif

}  // namespace
