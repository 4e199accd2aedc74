// Profile files: what counts as a section, a key and a value, and which bytes change when one key
// is written. The three data files: what is read of those that were edited by hand, and what the
// next save makes of them.
#include "profile/profile.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <sstream>

#include "errors/errors.h"
#include "materiallist/material_list_table.h"
#include "materialtypes/material_type_table.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "profile/write_key.h"
#include "tests/support/script_text.h"
#include "tests/support/temp_drives.h"
#include "text/clean_text.h"

namespace {

using namespace std::string_literals;
using profile::Profile;
using profile::WriteKeys;
using std::string;

constexpr const char* kFile = "c:\\net\\nestuser.ini";

string Find(const string& bytes, const string& section, const string& key) {
    return string(Profile(bytes).Find(section, key).value_or("-"));
}

TEST(Profile, HasSectionsKeysAndValues) {
    const string file =
        // What stands before the first section belongs to a section without a name.
        "k=0\r\n \t[ S\t] of old\r\nk=1\r\n;k=2\r\n \t;[t]\r\nm=3 ;c\r\nkk\r\nkk= \t \r\n=4\r\n"
        // The first section of a name counts, and in it the first key.
        "K=5\r\n[s]\r\nn=6\r\n[]\r\nn=7\r\n"
        // Only a line with both brackets is a section; else it may still be a key.
        "[[a]b]] k=8\r\n[t\r\nt]\r\n[t=9\r\n \tm\t = \ta b\tc= \t\x1A\r\n"
        "[B\xFB\xC9]\r\n\x8A=\xC4\xFF\x81\r\n\xD7=1\r\n"
        // One pair of matching quotes goes; NULs end names and values.
        "[q\0x]\r\na= \" a \" \r\nb=''b''\r\nc=\"c'\r\nd=\"\r\ne=\"\"\r\nf\0x=\"f\"\0g\r\nh=\"h\0\"\r\n"s;
    const std::map<string, std::map<string, string>> found = {
        {"", {{"k", "0"}, {"n", "-"}}},
        {"\t s ", {{" K\t", "1"}, {"m", "3 ;c"}, {"kk", ""}, {"", "4"}, {"n", "-"}, {";k", "-"}}},
        {"[a]b]", {{"k", "-"}, {"[t", "9"}, {"m", "a b\tc="}}},
        {"b\xDB\xE9", {{"\x9A", "\xC4\xFF\x81"}, {"\xF7", "-"}}},
        {"q", {{"a", " a "}, {"b", "'b'"}, {"c", "\"c'"}, {"d", "\""}, {"e", ""}, {"h", "\"h"}}},
        {"Q\0z"s, {{"f\0y"s, "f"}}}};
    for (const auto& [section, keys] : found) {
        for (const auto& [key, value] : keys) EXPECT_EQ(Find(file, section, key), value) << key;
    }
    for (const string end : {"\r\n", "\n", "\r", "\r\r\n", "\n\r"}) {
        const string lines = end + "[s]" + end + "k=1" + end + end + "[t]" + end + "m=2";
        EXPECT_EQ(Find(lines, "s", "k") + Find(lines, "t", "m"), "12");
    }
}

// Nobody would wait for it if any step looked at the rest of the file again and again.
TEST(Profile, CanBeHuge) {
    string lines = string(1 << 20, '\r') + "[s]\r";
    for (int i = 0; i < 100000; ++i) lines += "\xC4key" + std::to_string(i) + "=v\r";
    for (int i = 0; i < 100000; ++i) lines += "[s" + std::to_string(i) + "]\rk=1\r";
    EXPECT_EQ(Find(lines, "s", "\xE4KEY99999") + Find(lines, "S99999", "k"), "v1");
}

TEST(WriteKeys, ChangesOnlyAValueOrAddsLines) {
    const test::TempDrives drives;
    std::vector<std::array<string, 5>> cases = {
        {"[s]\r\nk=1 ", "s", "k", "2", "[s]\r\nk=2 "},
        // A key is added at the end of its section, a section at the end.
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
        {"\r\r\n[s]\r\n", "s", "m", "2", "\r\r\n[s]\r\nm=2\r\n"}};
    const string head = "\x81\xFF\x00 no text\r\r\n; k=0\r\nk=0\r[S] of old\n[unclosed\r\n"s;
    const string tail = "\r\r\n;end\nK=9\r\nother = 7\r\n[s]\r\nk=8\n\r\n\x1A"s;
    for (const string& line : {"k=1"s, " \tK \t=\t 1 2"s, "k=\"1\""s, "k=a\0b"s, "k="s}) {
        const string name = line.substr(0, line.find_first_of("1\"a"));
        cases.push_back({head + line + tail, " S ", " k ", "new", head + name + "new" + tail});
    }
    for (const string end : {"\r\n", "\n", "\r"}) {
        const string before = "[s]" + end + "k=1";
        cases.push_back({before, "s", "m", "2", before + end + "m=2" + end});
        cases.push_back({before + end, "t", "m", "2", before + end + "[t]" + end + "m=2" + end});
    }
    // Of two bytes, in the order of the file: "[s]", "\xC4=\x80" and what the set lacks.
    string low = "\xFF\xFE", high = "\xFE\xFF";
    for (const char16_t unit : u"[s]\r\n\u00C4=\u20AC\u0416\r\n"s) {
        const char first = static_cast<char>(unit & 0xFF), second = static_cast<char>(unit >> 8);
        low.append({first, second}), high.append({second, first});
    }
    EXPECT_EQ(Find(low + "x", "s", "\xC4") + Find(high, "s", "\xC4"), "\x80?\x80?");
    cases.push_back({low, "s", "k", "\x80", low + "k\0=\0\xAC\x20\r\0\n\0"s});
    cases.push_back({high, "s", "k", "\x80", high + "\0k\0=\x20\xAC\0\r\0\n"s});
    for (const auto& [before, section, key, value, after] : cases) {
        drives.Write(kFile, before);
        WriteKeys(kFile, section, {{key, value}});
        EXPECT_EQ(drives.Read(kFile), after);
    }
}

TEST(WriteKeys, WritesAllOrNothing) {
    const test::TempDrives drives;
    const string before = "[s]\r\nk=1\r\n[x=1\r\n";
    drives.Write(kFile, before);
    // What would not be found again.
    const std::pair<string, string> refused[] = {{"k", "a\r\nb"}, {"k", "a\0b"s}, {"a\nb", "1"},
                                                 {"a=b", "1"},    {";k", "1"},    {"[x", "a]"}};
    for (const auto& [key, value] : refused) {
        EXPECT_THROW(WriteKeys(kFile, "s", {{"k", "5"}, {key, value}}), errors::FileError);
        EXPECT_EQ(drives.Read(kFile), before) << key;
    }
    EXPECT_THROW(WriteKeys(kFile, "s\r[t]", {{"k", "2"}}), errors::FileError);
    drives.SetReadOnly(kFile, true);
    EXPECT_THROW(WriteKeys(kFile, "s", {{"k", "2"}}), errors::FileError);
    WriteKeys(kFile, "s", {{"k", "1"}});  // no change is no reason to touch it
    EXPECT_THROW(WriteKeys("c:\\none\\new.ini", "s", {{"k", "v"}}), errors::FileError);
}

// Showing a record in a window cleans its texts.
template <class... Texts>
void Show(bool shown, Texts&... texts) {
    if (shown) ((texts = text::CleanText(texts)), ...);
}

// What reading and saving make of a file.
string Processes(const string& bytes, bool shown = false) {
    process::ProcessTable table;
    ReadProcesses(Profile(bytes), table);
    for (auto& record : table.Processes) Show(shown, record.Name, record.Leadin, record.Leadout);
    return ProcessFileText(table);
}

string Types(const string& bytes, bool shown = false) {
    materialtypes::MaterialTypeTable table;
    ReadMaterialTypes(Profile(bytes), table);
    for (auto& record : table.Records) Show(shown, record.Code, record.Description);
    return MaterialTypesText(table);
}

string List(const string& bytes, bool = false) {
    materiallist::MaterialListTable table{3, {}};  // of the list before
    ReadMaterialList(Profile(bytes), table);
    return MaterialListText(table, materiallist::kExistingDirectory);
}

TEST(DataFiles, OfTheDemonstrationComeBackByteForByte) {
    for (const auto& [save, path] : {std::pair(&Processes, "system/process.dat"),
                                     {Types, "system/mattypes.dat"},
                                     {List, "USER/PROD/JOB4711/MATERIAL.DAT"}}) {
        const string demo = test::SourceFile(string("demo/drives/c/tolvarin/") + path);
        EXPECT_EQ(save(demo, true), demo) << path;
    }
}

// Lines of a process, and those that a save writes other than for one without lines.
TEST(DataFiles, AProcessEditedByHand) {
    const std::pair<const char*, const char*> cases[] = {
        // Halves go to the even neighbour; 16 bits are the limit.
        {"rapid=\nLineMarkRate=-1e99\nLeadin=line\nLeadout=Liner\nLeadoutPercent=2.5\n"
         "LeadoutOverrun=-32768.5\nMajorDir=1\nMinorDir=-1\nMinorOpenKerf=\nExtension=1\n"
         "AddKerf=-.001\nLeadoutextension=2",
         "Rapid=0|LineMarkRate=-3.402823E+38|LeadoutPercent=2|LeadoutOverrun=-32768|MajorDir=1|"
         "MinorDir=-1|MinorOpenKerf=0|Extension=1|AddKerf=1|Leadout=Line|Leadoutangle=0|"
         "Leadoutextension=2"},
        {"Leadin=Line\nLeadout=A180\nLeadoutangle=1.5%\nLeadoutPercent=3 2767.4\nMinorOpenKerf=-1",
         "Leadin=Line|Angle=0|LeadoutPercent=32767|MinorOpenKerf=-1|Leadout=A180"},
        {"Leadin=A180\nAngle=7\nLeadout=Line\nLeadoutangle=1.51%\nMajorDir=-1\nMinorDir=1",
         "Leadin=A180|MajorDir=-1|MinorDir=1|Leadout=Line|Leadoutangle=2"},
        // What is none of the known numbers goes. Of an arc the blank is lost on the way in, and
        // with it the code.
        {"MajorDir=2\nMinorDir=-2\nMinorOpenKerf=2\nExtension=2\nLeadoutextension=-1\nLeadin=Arc \n"
         "Leadout=Arc \nAddKerf=no",
         ""},
        // Only a thickness keeps its sign; an empty number takes the next; a gap ends the list.
        {"Thickness1=12mm, 3, 900, 6\nThickness2=-.50mm, -2, 1500, 4, 1,9\n"
         "Thickness3=8mm,,1500,4,1\nThickness4=mm, -.5, about 1.5E3 fast, none\n"
         "Thickness5=1e99, 1e7, .00001, 1234567.8, 0\nThickness7=1",
         "Thickness1=12mm, 3, 900, 6, 0|Thickness2=-.5mm, 2, 1500, 4, 1|"
         "Thickness3=8mm, 1500, 4, 1, 0|Thickness4=0mm, .5, 1500, 0, 0|"
         "Thickness5=3.402823E+38mm, 1E+07, 1E-05, 1234568, 0"}};
    const string head = "[PROCESSES]\nprocess1= plasma \nProcess3=C\n[Plasma]\n",
                 usual = Processes(head);
    for (const auto& [lines, expected] : cases) {
        std::istringstream text(Processes(head + lines));
        string others;
        for (string line; std::getline(text, line);) {
            if (line[0] == ';' || usual.find("\n" + line + "\n") != usual.npos) continue;
            others.append(others.empty() ? "" : "|").append(line, 0, line.size() - 1);
        }
        EXPECT_EQ(others, expected) << lines;
    }
}

TEST(DataFiles, TextsAreCutToTheirFields) {
    const string n(64, 'n'), c(32, 'C'), t(50, 't');
    const std::array<string, 2> cases[] = {
        // Names are cut out of the one read buffer, with what earlier values left in it.
        {Processes("[Processes]\nProcess1=Plasma\nProcess2=Ox\nProcess3=" + n + "tail\n[Plasma]\n" +
                   "Thickness1=10mm, 2.5, 1200\n[" + n + "]\nMajorDir=1\n"),
         "\nProcess1=Plasma" + string(58, '\0') + "\r\nProcess2=Ox\0m, 2.5, 1200"s +
             string(49, '\0') + "\r\nProcess3=" + n + "\r\n\r\r\n[Plasma]\r\n"},
        // Codes and descriptions are followed by their NUL alone, as far as it fits.
        {Types("[materials]\nMAT1= ms \nMat2=" + c + "12\nMat4=X\n[" + c + "]\nDescription=" + t +
               "\nDensity= 7 .85 t\n"),
         "\nMat1=ms\0"s + string(29, ' ') + "\r\nMat2=" + c + "\r\n\r\r\n[ms]\r\nDescription=\0"s +
             string(49, ' ') + "\r\nDensity=0\r\n\r\r\n[" + c + "]\r\nDescription=" + t +
             "\r\nDensity=7.85\r\n"},
        {List("[mat2]\nTYPE= S\x01x \nthickness= .25mm\n[Mat1]\nType=" + c + "1\nThickness=-3\n" +
              "Process=" + n + "1\n[Mat3]\nType=\n[Mat4]\nType=no"),
         "\n[Mat1]\r\nType=" + c + "\r\nThickness=0mm\r\nProcess=" + n +
             "\r\n\r\r\n[Mat2]\r\nType=S\r\nThickness=0.25mm\r\nProcess=\r\n"}};
    for (const auto& [file, lines] : cases) EXPECT_NE(file.find(lines), string::npos) << file;
}

}  // namespace
