// Profile files: what counts as a section, a key and a value, and which bytes change when one key
// is written. On Windows the platform's own functions are asked as well: they are the reference.
#include "profile/profile.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "errors/errors.h"
#include "profile/write_key.h"
#include "tests/support/temp_drives.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

using namespace std::string_literals;
using profile::Profile;
using profile::WriteKeys;
using std::string;

constexpr const char* kFile = "c:\\net\\nestuser.ini";

// What the platform's own function finds; `value` elsewhere.
string OfThePlatform([[maybe_unused]] const test::TempDrives& drives,
                     [[maybe_unused]] const string& bytes, [[maybe_unused]] const string& section,
                     [[maybe_unused]] const string& key, [[maybe_unused]] const string& value) {
#ifdef _WIN32
    // A file of a name of its own: the platform remembers files by name and time.
    static int files = 0;
    const string path = "c:\\" + std::to_string(++files) + ".ini";
    drives.Write(path, bytes);
    char found[255];
    GetPrivateProfileStringA(section.c_str(), key.c_str(), "(none)", found, sizeof found,
                             drives.Path(path).string().c_str());
    return found;
#else
    return value;
#endif
}

struct Lookup {
    string bytes, section, key, value;  // "(none)" where there is no such key
    bool settled = false;               // that the platform's function, or Wine's, has it otherwise
};

void Find(const std::vector<Lookup>& lookups) {
    const test::TempDrives drives;
    for (const auto& [bytes, section, key, value, settled] : lookups) {
        const string shown = testing::PrintToString(bytes.substr(0, 200)) + " " + key;
        EXPECT_EQ(Profile(bytes).Find(section, key).value_or("(none)"), value) << shown;
        const string cut = value.substr(0, 254);
        if (settled) continue;
        EXPECT_EQ(OfThePlatform(drives, bytes, section, key, cut), cut) << shown;
    }
}

TEST(Profile, SectionsKeysAndValues) {
    Find({
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
        // NULs end names and values.
        {"[s\0x]\r\nk\0x=\"a\"\0b\r\n"s, "s\0t"s, "k\0m"s, "a"},
        {"[s]\r\nk=\"a\0b\"\r\nm=2"s, "s", "k", "\"a"},
    });
    for (const string end : {"\r\n", "\n", "\r", "\r\r\n", "\n\r"}) {
        const string lines = end + "[s]" + end + "k=1" + end + end + "[t]" + end + "m=2";
        Find({{lines, "s", "k", "1"}, {lines, "t", "m", "2"}});
    }
}

// "[s]", "\xC4=\x80" and, in the value, a character that the set lacks.
string Wide(bool bigEndian) {
    string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char16_t unit : u"[s]\r\n\u00C4=\u20AC\u0416\r\n"s) {
        const string low(1, static_cast<char>(unit & 0xFF)), high(1, static_cast<char>(unit >> 8));
        bytes += bigEndian ? high + low : low + high;
    }
    return bytes;
}

TEST(Profile, ByteOrderMarks) {
    for (const string& bytes : {Wide(false), Wide(true), Wide(false) + "x"}) {
        Find({{bytes, "s", "\xC4", "\x80?", true}});
    }
    Find({{"\xEF\xBB\xBF[s]\r\nk=1\r\n", "s", "k", "1"}, {"\xFF\xFE", "s", "k", "(none)"}});
}

// Nobody would wait for these if any step looked at the rest of the file again and again.
TEST(Profile, HugeFiles) {
    const string longLine(1 << 20, 'x'), returns(1 << 20, '\r');
    Find({{"[" + longLine + "]\r" + longLine + "=" + longLine, longLine, longLine, longLine, true},
          {returns + "[s]\rm=1", "s", "m", "1"}});
    string lines = "[s]\r";
    for (int i = 0; i < 100000; ++i) lines += "\xC4key" + std::to_string(i) + "=v\r";
    for (int i = 0; i < 100000; ++i) lines += "[s" + std::to_string(i) + "]\rk=1\r";
    Find({{lines, "s", "\xE4KEY99999", "v", true}, {lines, "S99999", "k", "1"}});
}

TEST(Profile, DefaultSizeAndBuffer) {
    const Profile file("[s]\r\nk=abcdefgh\r\nm=xy\r\ne=\r\nl=" + string(300, 'n'));
    EXPECT_EQ(file.Text("s", "none", " \tx \t  "), " \tx \t");
    EXPECT_EQ(file.Text("none", "k", "'x' "), "x");
    EXPECT_EQ(file.Text("s", "k", "x", 4), "abc");
    EXPECT_EQ(file.Text("s", "none", "abcdef", 4), "abc");
    EXPECT_EQ(file.Text("s", "k", "x", 1) + file.Text("s", "k", "x", 0), "");
    EXPECT_EQ(file.Text("s", "l", "").size(), 254u);
    // Behind a value stands what longer ones before it have left.
    std::array<char, 12> buffer;
    buffer.fill('#');
    const std::string_view text(buffer.data(), buffer.size());
    EXPECT_EQ(file.Read("s", "k", "", buffer), 8u);
    EXPECT_EQ(file.Read("s", "m", "", buffer), 2u);
    EXPECT_EQ(text, "xy\0defgh\0###"s);
    EXPECT_EQ(file.Read("s", "e", "z", buffer), 0u);
    EXPECT_EQ(text, "\0y\0defgh\0###"s);
}

TEST(Profile, IsEmptyWithoutAFile) {
    const test::TempDrives drives;
    drives.MakeDir("c:\\folder.dat");
    for (const char* none :
         {"c:\\b.dat", "c:\\no\\a.dat", "x:\\a", "c:\\folder.dat", "", "c:\\a?"}) {
        EXPECT_EQ(Profile::Load(none).Bytes(), "") << none;
    }
}

struct Change {
    string before, section, key, value, after;
};

// Through the file, as the system does it.
void Write(const std::vector<Change>& changes) {
    const test::TempDrives drives;
    for (const auto& [before, section, key, value, after] : changes) {
        drives.Write(kFile, before);
        WriteKeys(kFile, section, {{key, value}});
        EXPECT_EQ(drives.Read(kFile), after);
        EXPECT_EQ(drives.Count("c:\\net"), 1);
        if (after.starts_with("\xEF\xBB\xBF")) continue;  // the platform would take it for UTF-8
        EXPECT_EQ(OfThePlatform(drives, after, section, key, value), value) << after;
    }
}

TEST(WriteKeys, ChangesOnlyTheBytesOfTheValue) {
    const string head = "\x81\xFF\x00 no text\r\r\n; k=0\r\nk=0\r[S] of old\n[unclosed\r\n"s;
    const string tail = "\r\r\n;end\nK=9\r\nother = 7\r\n[s]\r\nk=8\n\r\n\x1A"s;
    for (const string& line : {"k=1"s, " \tK \t=\t 1 2"s, "k=\"1\""s, "k=a\0b"s, "k="s}) {
        const string name = line.substr(0, line.find_first_of("1\"a"));
        Write({{head + line + tail, "s", "k", "new value", head + name + "new value" + tail}});
    }
    Write({{"[s]\r\nk=1\r\n", " S ", " K ", "", "[s]\r\nk=\r\n"},
           {"[s]\r\nk=1 ", "s", "k", "2", "[s]\r\nk=2 "}});
}

TEST(WriteKeys, AddsAKeyAtTheEndOfItsSectionAndASectionAtTheEnd) {
    Write({
        {"[s]", "s", "m", "2", "[s]\r\nm=2\r\n"},
        {"[s]\r\nn\r\n;last\r\n\r\n[t]\r\nm=1\r\n[s]\r\nm=1", "s", "m", "2",
         "[s]\r\nn\r\n;last\r\nm=2\r\n\r\n[t]\r\nm=1\r\n[s]\r\nm=1"},
        {"k=1\r\n\r\n[t]\r\n", "", "m", "2", "k=1\r\nm=2\r\n\r\n[t]\r\n"},
        {"[s]\r\n\r\n;c", "t", "k", "2", "[s]\r\n\r\n;c\r\n[t]\r\nk=2\r\n"},
        {"", "t", "k", "2", "[t]\r\nk=2\r\n"},
        {"[t]x", "[t]", "k", "2", "[t]x\r\n[[t]]\r\nk=2\r\n"},
        {"\xEF\xBB\xBF", "s", "k", "\xE4", "\xEF\xBB\xBF[s]\r\nk=\xE4\r\n"},
        {"\xEF\xBB\xBF[s]\r\n", "", "k", "1", "\xEF\xBB\xBFk=1\r\n[s]\r\n"},
        // The blank lines of the system's own files begin with a lone CR.
        {"\r\r\n[s]\r\n", "s", "m", "2", "\r\r\n[s]\r\nm=2\r\n"},
    });
    for (const string end : {"\r\n", "\n", "\r"}) {
        const string before = "[s]" + end + "k=1";
        Write({{before, "s", "m", "2", before + end + "m=2" + end},
               {before + end, "t", "m", "2", before + end + "[t]" + end + "m=2" + end}});
    }
    // In the width and order of the file.
    const string big = "\0k\0=\0\x31\0\r\0\n"s, little = "k\0=\0\x31\0\r\0\n\0"s;
    Write({{Wide(true), "s", "k", "1", Wide(true) + big},
           {Wide(false), "s", "k", "1", Wide(false) + little}});
}

TEST(WriteKeys, WritesAllOrNothing) {
    const test::TempDrives drives;
    const string before = "[s]\r\nk=1\r\n[x=1\r\n";
    drives.Write(kFile, before);
    // What would not be found again.
    for (const auto& [section, key, value] :
         std::vector<std::array<string, 3>>{{"s", "k", "a\r\nb"},
                                            {"s", "k", "a\0b"s},
                                            {"s", "a\nb", "1"},
                                            {"s", "k\0"s, "1"},
                                            {"s\r[t]", "k", "1"},
                                            {"s\0t"s, "k", "1"},
                                            {"s", "a=b", "1"},
                                            {"s", ";k", "1"},
                                            {"t", " ;k", "1"},
                                            {"s", "[k", "a]"},
                                            {"s", "[x", "a]"}}) {
        EXPECT_THROW(WriteKeys(kFile, section, {{"k", "5"}, {key, value}}), errors::FileError)
            << key;
        EXPECT_EQ(drives.Read(kFile), before);
    }
    drives.SetReadOnly(kFile, true);
    EXPECT_THROW(WriteKeys(kFile, "s", {{"k", "2"}}), errors::FileError);
    WriteKeys(kFile, "s", {{"k", "1"}});  // no change is no reason to touch it
    for (const char* path : {"c:\\none\\new.ini", "x:\\net\\new.ini", "c:\\net"}) {
        EXPECT_THROW(WriteKeys(path, "s", {{"k", "v"}}), errors::FileError) << path;
    }
    EXPECT_EQ(drives.Count("c:\\net") + drives.Count("c:\\"), 2);
}

}  // namespace
