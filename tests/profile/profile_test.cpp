// Reading profile files: what counts as a section, a key and a value. On Windows the platform's own
// function is asked as well: it is the reference.
#include "profile/profile.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "errors/errors.h"
#include "tests/support/temp_drives.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace profile {
namespace {

using namespace std::string_literals;

struct Lookup {
    std::string bytes;
    std::string section;
    std::string key;
    std::string value;     // "(none)" where there is no such key
    bool settled = false;  // that the platform's function, or Wine's, has it otherwise
};

void Check(const std::vector<Lookup>& lookups) {
    [[maybe_unused]] const test::TempDrives drives;
    [[maybe_unused]] int files = 0;
    for (const Lookup& lookup : lookups) {
#ifdef _WIN32
        // A file of a name of its own: the platform remembers files by name and time.
        const std::string path = "c:\\" + std::to_string(++files) + ".ini";
        drives.Write(path, lookup.bytes);
        char buffer[255];
        GetPrivateProfileStringA(lookup.section.c_str(), lookup.key.c_str(), "(none)", buffer,
                                 sizeof buffer, drives.Path(path).string().c_str());
        EXPECT_TRUE(lookup.settled || buffer == lookup.value.substr(0, 254))
            << testing::PrintToString(lookup.bytes.substr(0, 200)) << " is " << buffer;
#endif
        const Profile profile(lookup.bytes);
        const auto found = profile.Find(lookup.section, lookup.key);
        EXPECT_EQ(found.value_or("(none)"), lookup.value)
            << "[" << lookup.section << "] " << lookup.key << " in\n"
            << testing::PrintToString(lookup.bytes.substr(0, 200));
    }
}

TEST(Profile, SectionsKeysAndValues) {
    Check({
        {" \t[ S\t] of old\r\nk=1\r\n", "\t s ", " K\t", "1"},
        {"[s]k=1\r\n", "s", "k", "(none)"},
        {"[[a]b]] c\r\nk=1\r\n", "[a]b]", "k", "1"},
        // Only a line with both brackets is a section; else it may still be a key.
        {"[s]\r\n[t\r\nt]\r\nk=1\r\n", "s", "k", "1"},
        {"[s]\r\n[t=1\r\n", "s", "[t", "1"},
        // What stands before the first section belongs to a section without a name.
        {"k=1\r\n[s]\r\nk=2\r\n", "", "k", "1"},
        {"k=1\r\n[]\r\nm=2\r\n", "", "m", "(none)"},
        {"[s]\r\n \tk\t = \ta b\tc= \t\x1A\r\n", "s", "k", "a b\tc="},
        {"[s]\r\nk= \t \r\n", "s", "k", ""},
        {"[s]\r\nk\r\nkk=2\r\nk=1\r\n", "s", "k", "1", true},
        {"[s]\r\nk\r\n", "s", "k", "(none)"},
        {"[s]\r\n=1\r\n", "s", "", "1"},
        {"[s]\r\nk=[t]\r\nm=\xC4\xFF\x81\x01\r\n", "s", "m", "\xC4\xFF\x81\x01"},
        // The first section of a name counts, and in it the first key.
        {"[s]\r\nk=1\r\nK=2\r\n[S]\r\nk=4\r\nm=5\r\n", "S", "k", "1"},
        {"[s]\r\nk=1\r\n[S]\r\nm=5\r\n", "s", "m", "(none)"},
        {"[Br\xFBler \xC9]\r\n\x8A\x9C=1\r\n", "BR\xDBLER \xE9", "\x9A\x8C", "1", true},
        {"[s]\r\n\xD7=1\r\n", "s", "\xF7", "(none)"},
        {"[s]\r\n;k=1\r\n;[t]\r\nk=2 ; really\r\n", "s", "k", "2 ; really"},
        {"[s]\r\n \t;k=1\r\n", "s", ";k", "(none)", true},
        // One pair of matching quotes goes.
        {"[s]\r\nk= \" a \" \r\n", "s", "k", " a "},
        {"[s]\r\nk=''a''\r\n", "s", "k", "'a'"},
        {"[s]\r\nk=\"a'\r\n", "s", "k", "\"a'"},
        {"[s]\r\nk=\"\r\n", "s", "k", "\""},
        {"['s']\r\nk=1\r\n", "s", "k", "(none)"},
        // NULs end names and values.
        {"[s\0x]\r\nk\0x=\"a\"\0b\r\n"s, "s\0t"s, "k\0m"s, "a"},
        {"[s]\r\nk=\"a\0b\"\r\nm=2"s, "s", "k", "\"a"},
    });
    for (const std::string end : {"\r\n", "\n", "\r", "\r\r\n", "\n\r"}) {
        const std::string lines = end + "[s]" + end + "k=1" + end + end + "[t]" + end + "m=2";
        Check({{lines, "s", "k", "1"}, {lines, "t", "m", "2"}});
    }
}

TEST(Profile, ByteOrderMarks) {
    // "[s]", "Ä=€" and a character that the set lacks, in both byte orders.
    const std::u16string text = u"[s]\r\n\u00C4=\u20AC\u0416\r\nm=2";
    std::string little = "\xFF\xFE", big = "\xFE\xFF";
    for (char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
        little.append(1, low).append(1, high);
        big.append(1, high).append(1, low);
    }
    for (const std::string& bytes : {little, big, little + "x", big + "x"}) {
        Check({{bytes, "s", "\xC4", "\x80?", true}, {bytes, "s", "m", "2", true}});
    }
    Check({{"\xEF\xBB\xBF[s]\r\nk=1\r\n", "s", "k", "1"},
           {"\xEF\xBB\xBFk=1\r\n", "", "k", "1"},
           {"\xEF\xBB\xBF", "s", "k", "(none)"},
           {"\xFF\xFE", "s", "k", "(none)"},
           {"\xFF", "s", "k", "(none)"}});
}

// Nobody would wait for these if any step looked at the rest of the file again and again.
TEST(Profile, HugeFiles) {
    const std::string longLine(1 << 20, 'x'), returns(1 << 20, '\r');
    Check({{"[" + longLine + "]\r" + longLine + "=" + longLine, longLine, longLine, longLine, true},
           {returns + "[s]\rm=1", "s", "m", "1"}});
    std::string lines = "[s]\r";
    for (int i = 0; i < 100000; ++i) lines += "\xC4key" + std::to_string(i) + "=v\r";
    for (int i = 0; i < 100000; ++i) lines += "[s" + std::to_string(i) + "]\rk=1\r";
    Check({{lines, "s", "\xE4KEY99999", "v", true}, {lines, "S99999", "k", "1"}});
}

TEST(Profile, DefaultAndSize) {
    const Profile profile("[s]\r\nk=abcdef\r\nq=\"abcdef\"\r\ne=\r\n");
    EXPECT_EQ(profile.Text("s", "k", "x"), "abcdef");
    EXPECT_EQ(profile.Text("s", "e", "x"), "");
    EXPECT_EQ(profile.Text("s", "none", " \tx \t  "), " \tx \t");
    EXPECT_EQ(profile.Text("none", "k", "'x' "), "x");
    EXPECT_EQ(profile.Text("s", "k", "x", 4), "abc");
    EXPECT_EQ(profile.Text("s", "none", "abcdef", 4), "abc");
    EXPECT_EQ(profile.Text("s", "k", "x", 1), "");
    EXPECT_EQ(profile.Text("s", "k", "x", 0), "");

    const std::string name(300, 'n');
    EXPECT_EQ(Profile("[s]\r\nk=" + name).Text("s", "k", ""), name.substr(0, 254));
}

// The process file's reader takes more characters from the buffer than were read.
TEST(Profile, BufferKeepsWhatStoodBehindTheValue) {
    const Profile profile("[s]\r\nlong=abcdefgh\r\nshort=xy\r\nempty=\r\n");
    std::array<char, 12> buffer;
    buffer.fill('#');
    const auto text = [&] { return std::string_view(buffer.data(), buffer.size()); };

    EXPECT_EQ(profile.Read("s", "long", "", buffer), 8u);
    EXPECT_EQ(text(), "abcdefgh\0###"s);
    EXPECT_EQ(profile.Read("s", "short", "", buffer), 2u);
    EXPECT_EQ(text(), "xy\0defgh\0###"s);
    EXPECT_EQ(profile.Read("s", "empty", "z", buffer), 0u);
    EXPECT_EQ(text(), "\0y\0defgh\0###"s);
    EXPECT_EQ(profile.Read("s", "long", "", std::span(buffer).first(3)), 2u);
    EXPECT_EQ(text(), "ab\0defgh\0###"s);
    EXPECT_EQ(profile.Read("s", "long", "", std::span(buffer).first(0)), 0u);
    EXPECT_EQ(text(), "ab\0defgh\0###"s);
}

TEST(Profile, IsEmptyWithoutAFile) {
    test::TempDrives drives;
    drives.MakeDir("c:\\dir\\folder.dat");
    for (const char* missing : {"c:\\dir\\b.dat", "c:\\none\\a.dat", "x:\\a.dat",
                                "c:\\dir\\folder.dat", "", "c:\\dir\\a?.dat"}) {
        EXPECT_EQ(Profile::Load(missing).Bytes(), "") << missing;
    }
}

}  // namespace
}  // namespace profile
