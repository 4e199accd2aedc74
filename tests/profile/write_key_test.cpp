// Writing one key: which bytes change and which never do.
#include "profile/write_key.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "errors/errors.h"
#include "profile/profile.h"
#include "tests/support/temp_drives.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace profile {
namespace {

using namespace std::string_literals;

constexpr const char* kFile = "c:\\net\\nestuser.ini";

struct Write {
    std::string before;
    std::string section;
    std::string key;
    std::string value;
    std::string after;
};

// Through the file, as the system does it.
void Check(const std::vector<Write>& writes) {
    const test::TempDrives drives;
    [[maybe_unused]] int files = 0;
    for (const Write& write : writes) {
        drives.Write(kFile, write.before);
        EXPECT_NO_THROW(WriteKeys(kFile, write.section, {{write.key, write.value}}));
        EXPECT_EQ(drives.Read(kFile), write.after);
        EXPECT_EQ(drives.Count("c:\\net"), 1);
#ifdef _WIN32
        // The platform's own function finds what was written, unless it takes it for UTF-8.
        if (write.after.starts_with("\xEF\xBB\xBF")) continue;
        const std::string path = "c:\\" + std::to_string(++files) + ".ini";
        drives.Write(path, write.after);
        char value[255];
        GetPrivateProfileStringA(write.section.c_str(), write.key.c_str(), "(none)", value,
                                 sizeof value, drives.Path(path).string().c_str());
        EXPECT_EQ(value, write.value) << testing::PrintToString(write.after);
#endif
    }
}

TEST(WriteKey, ChangesOnlyTheBytesOfTheValue) {
    const std::string head = "\x81\xFF\x00 no text\r\r\n; k=0\r\nk=0\r[S] of old\n[unclosed\r\n"s;
    const std::string tail = "\r\r\n;end\nK=9\r\nother = 7\r\n[s]\r\nk=8\n\r\n\x1A"s;
    for (const auto& [before, after] : std::vector<std::pair<std::string, std::string>>{
             {"k=1", "k=new value"},
             {" \tK \t=\t 1 2 \t", " \tK \t=\t new value \t"},
             {"k=\"1\"", "k=new value"},
             {"k=a\0b"s, "k=new value"},
             {"k=", "k=new value"},
             {"k= ", "k=new value "},
         }) {
        Check({{head + before + tail, "s", "k", "new value", head + after + tail}});
    }
    Check({{"[s]\r\nk=1\r\n", "s", "k", "", "[s]\r\nk=\r\n"},
           {"[s]\r\nk=1", "s", "k", "2", "[s]\r\nk=2"},
           {"[s]\r\nk=1\r\n", " S ", " K ", "2", "[s]\r\nk=2\r\n"}});
}

TEST(WriteKey, AddsAMissingKeyAtTheEndOfItsSectionAndAMissingSectionAtTheEnd) {
    Check({
        {"[s]", "s", "m", "2", "[s]\r\nm=2\r\n"},
        {"[s]\r\nn\r\n;last\r\n\r\n[t]\r\nm=1\r\n[s]\r\nm=1", "s", "m", "2",
         "[s]\r\nn\r\n;last\r\nm=2\r\n\r\n[t]\r\nm=1\r\n[s]\r\nm=1"},
        {"k=1\r\n\r\n[t]\r\n", "", "m", "2", "k=1\r\nm=2\r\n\r\n[t]\r\n"},
        {"[s]\r\n\r\n;c", "t", "k", "2", "[s]\r\n\r\n;c\r\n[t]\r\nk=2\r\n"},
        {"", "t", "k", "2", "[t]\r\nk=2\r\n"},
        {"[t]x", "[t]", "k", "2", "[t]x\r\n[[t]]\r\nk=2\r\n"},
        // The blank lines of the system's own files begin with a lone CR.
        {"\r\r\n[s]\r\n", "s", "m", "2", "\r\r\n[s]\r\nm=2\r\n"},
    });
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        const std::string before = "[s]" + end + "k=1";
        Check({{before, "s", "m", "2", before + end + "m=2" + end},
               {before + end, "t", "m", "2", before + end + "[t]" + end + "m=2" + end}});
    }
}

TEST(WriteKey, KeepsByteOrderMarksAndWidth) {
    const auto wide = [](std::string_view text, bool bigEndian) {
        std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
        for (char c : text) bytes += bigEndian ? "\0"s + c : c + "\0"s;
        return bytes;
    };
    for (const bool big : {false, true}) {
        const std::string zhe = big ? "\x04\x16" : "\x16\x04";  // not in the set
        const std::string comment = wide(";", big) + zhe + wide("\r\n[s]\r\n", big).substr(2);
        const std::string euro = big ? "\x20\xAC" : "\xAC\x20";
        const std::string end = wide("\r\n", big).substr(2);
        Check({{comment + wide("k=1\r\n", big).substr(2), "s", "k", "\x80",
                comment + wide("k=", big).substr(2) + euro + end},
               {comment, "s", "k", "\x80", comment + wide("k=", big).substr(2) + euro + end}});
    }
    const std::string mark = "\xEF\xBB\xBF";
    Check({{mark, "s", "k", "1", mark + "[s]\r\nk=1\r\n"},
           {mark + "[s]\r\n", "", "k", "1", mark + "k=1\r\n[s]\r\n"},
           {mark + "[s]\r\nk=\xC3\xA4\r\n", "s", "k", "\xE4", mark + "[s]\r\nk=\xE4\r\n"}});
}

TEST(WriteKey, RefusesWhatWouldNotBeFoundAgain) {
    const test::TempDrives drives;
    const std::string before = "[s]\r\nk=1\r\n[x=1\r\n";
    drives.Write(kFile, before);
    for (const auto& [section, key, value] : std::vector<std::array<std::string, 3>>{
             {"s", "k", "a\r\nb"},
             {"s", "k", "a\0b"s},
             {"s", "a\nb", "1"},
             {"s", "k\0"s, "1"},
             {"s\r[t]", "k", "1"},
             {"s\0t"s, "k", "1"},
             {"s", "a=b", "1"},
             {"s", ";k", "1"},
             {"t", " ;k", "1"},
             {"s", "[k", "a]"},
             {"s", "[x", "a]"},
         }) {
        EXPECT_THROW(WriteKeys(kFile, section, {{key, value}}), errors::FileError)
            << section << "/" << key;
        EXPECT_EQ(drives.Read(kFile), before);
    }
}

TEST(WriteKey, WritesAllPairsOrNoneIntoTheFileAsItIsNow) {
    const test::TempDrives drives;
    drives.MakeDir("c:\\net");
    EXPECT_NO_THROW(WriteKeys(kFile, "s", {{"k", "1"}, {"m", "2"}}));
    EXPECT_EQ(drives.Read(kFile), "[s]\r\nk=1\r\nm=2\r\n");
    drives.Write(kFile, "[s]\r\nk=3\r\nn=4\r\n");  // another program has written meanwhile
    EXPECT_THROW(WriteKeys(kFile, "s", {{"k", "5"}, {"a=b", "6"}}), errors::FileError);
    EXPECT_NO_THROW(WriteKeys(kFile, "s", {{"n", "5"}}));
    EXPECT_EQ(drives.Read(kFile), "[s]\r\nk=3\r\nn=5\r\n");
    drives.SetReadOnly(kFile, true);
    EXPECT_THROW(WriteKeys(kFile, "s", {{"k", "2"}}), errors::FileError);
    EXPECT_NO_THROW(WriteKeys(kFile, "s", {{"k", "3"}}));  // no change is no reason to touch it
    EXPECT_EQ(drives.Read(kFile), "[s]\r\nk=3\r\nn=5\r\n");
    for (const char* path : {"c:\\none\\new.ini", "x:\\net\\new.ini", "c:\\net"}) {
        EXPECT_THROW(WriteKeys(path, "s", {{"k", "v"}}), errors::FileError) << path;
    }
    EXPECT_FALSE(drives.Exists("c:\\none"));
    EXPECT_EQ(drives.Count("c:\\net"), 1);
}

}  // namespace
}  // namespace profile
