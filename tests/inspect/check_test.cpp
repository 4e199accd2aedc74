// What a look over the data finds: each kind of fault at its line, and nothing beside it.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <sstream>

#include "inspect/check_files.h"
#include "tests/support/script_text.h"

namespace {

using inspect::Findings;
using std::string;

// "4 warning text; 5 note text", with the line in front.
string Shown(const Findings& findings) {
    string shown;
    for (const auto& finding : findings) {
        shown += (shown.empty() ? "" : "; ") + std::to_string(finding.line) + " " +
                 inspect::NameOf(finding.severity) + " " + finding.text;
    }
    return shown;
}

// Each line of the cases: lines of a file divided by |, an arrow, and what is found, at its lines.
template <typename Check>
void Look(const string& cases, const Check& check) {
    std::istringstream lines(cases);
    string bytes, expected;
    const auto compare = [&] {
        if (bytes.empty()) return;
        Findings findings;
        check(test::Meant(std::regex_replace(bytes, std::regex("\\|"), "\r\n")), findings);
        std::stable_sort(findings.begin(), findings.end(),
                         [](const auto& a, const auto& b) { return a.line < b.line; });
        EXPECT_EQ(Shown(findings), expected)
            << "\nafter:     " << bytes << "\nexpected:  " << expected
            << "\nreally:    " << Shown(findings);
    };
    for (string line; std::getline(lines, line);) {
        line.erase(0, line.find_first_not_of(' '));
        const auto arrow = line.find("->");
        if (arrow == 0) {
            expected +=
                (expected.empty() ? "" : " ") + line.substr(std::min<std::size_t>(3, line.size()));
        } else if (arrow != string::npos) {
            compare();
            bytes = line.substr(0, line.find_last_not_of(' ', arrow - 1) + 1);
            expected = line.size() > arrow + 3 ? line.substr(arrow + 3) : "";
        }
    }
    compare();
}

TEST(Check, Processes) {
    Look(R"(
[Processes]|Process1=P|[P]|Rapid=7,85|LineMarkRate=7,x|AddKerf=on|LeadoutOverrun=2.5|LeadoutPercent=2,5 ->
  -> 4 warning Rapid=7,85 reads as 7: decimals stand behind a point; 6 warning AddKerf=on reads as
  -> 0: it does not begin with a number; 7 note LeadoutOverrun=2.5 reads as 2; 8 warning
  -> LeadoutPercent=2,5 reads as 2: decimals stand behind a point
[Processes]|Process1=P|[P]|Rapid=1e39|LeadoutPercent=32768|LeadoutOverrun=-32768 -> 4 warning
  -> Rapid=1e39 reads as 3.402823E+38, the largest number; 5 error LeadoutPercent=32768 is outside
  -> -32768 to 32767: the file cannot be opened
[Processes]|Process1=P|Process3=Q|[P]|Thickness1=3, 1, 9, 1, 1|Thickness3=4|[Q]|Rapid=1 -> 3 warning
  -> Process3 is not read: Process2 is missing or empty; 6 warning Thickness3 is not read:
  -> Thickness2 is missing or empty; 7 warning [Q] is not used: nothing lists it, and the next save
  -> leaves it out
a=1|A=2|[Processes]|Process1=P|process2=p|[p]|Rapid=1|Colour=red|RAPID=2|[P]|Rapid=3 -> 2 warning A
  -> stands a second time: only the first one is read; 5 warning p shares the section [p] with
  -> another name: what is set for one of them is lost; 8 note Colour is not read here, and the next
  -> save leaves it out; 9 warning RAPID stands a second time: only the first one is read; 10
  -> warning [P] stands a second time: only the first one is read; 11 warning Rapid stands a second
  -> time: only the first one is read
[Processes]|Process1=P|Process2=A\x01b|Process3={1-65:n} -> 2 warning there is no section [P]: P has
  -> the defaults and no thickness; 3 warning byte 1 is no character: names and texts end in front
  -> of it or show a gap; 3 warning the section of this name would be saved as [A] and not be found
  -> again: it has a character that does not print; 3 warning there is no section [Ab]: Ab has the
  -> defaults and no thickness; 4 warning
  -> "nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn" is cut to 64 characters; 4
  -> warning there is no section [nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn]:
  -> nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn has the defaults and no
  -> thickness
[Processes]|{1-20:Process#=P#|}{1-20:[P#]|} -> 21 note there is no room for more than these 20
  -> processes
[Processes]|{1-21:Process#=P#|}{1-21:[P#]|} -> 22 error there are more than 20 processes: the file
  -> cannot be opened; 43 warning [P21] is not used: nothing lists it, and the next save leaves it
  -> out
[Processes]|Process1=P|[P]|{1-101:Thickness#=#, 0, 1000, 1, 1|} -> 104 error there are more than 100
  -> thicknesses of one process: the file cannot be opened
[Processes]|Process1=P|[P]|Leadin=line|Angle=1e9|Leadout=Arc|MajorDir=2|MinorDir=-1 -> 4 warning
  -> Leadin=line is none of Line, Arc and A180: the next save leaves it out; 6 note Leadout=Arc is
  -> kept by a save only where the process window has shown this process before; 7 warning
  -> MajorDir=2 means nothing: the next save leaves it out
[Processes]|Process1=P|[P]|Leadin=Line|Angle=1e9|Leadout=A180|Extension=2|MinorOpenKerf=2|MinorDir=2|Leadoutextension=3|Thickness1x=3 ->
  -> 5 error Angle=1e9 is outside -32768 to 32767: the file cannot be opened; 7 warning Extension=2
  -> means nothing: the next save leaves it out; 8 warning MinorOpenKerf=2 means nothing: the next
  -> save leaves it out; 9 warning MinorDir=2 means nothing: the next save leaves it out; 10 warning
  -> Leadoutextension=3 means nothing: the next save leaves it out; 11 note Thickness1x is not read
  -> here, and the next save leaves it out
[Processes]|Process1=P|[P]|Thickness1=3mm,,9,1,1|Thickness2=4mm, -1, 8, 1, -1|Thickness3=5mm, 1|Thickness4=6, 9, 9, -1, 1 ->
  -> 4 warning Thickness1=3mm,,9,1,1: the pierce time is empty, so all behind it shift; 5 warning
  -> Thickness2=4mm, -1, 8, 1, -1: the sign of the pierce time is lost; 5 warning Thickness2=4mm,
  -> -1, 8, 1, -1: the sign of the nozzle size is lost; 5 note the feed rate 8 is off the course of
  -> its neighbours, by which it would be about 2.5; 5 note the pierce time 1 is off the course of
  -> its neighbours, by which it would be about 2.6; 6 warning Thickness3=5mm, 1: there is no feed
  -> rate, which reads as 0; 6 note the feed rate is 0: nothing is cut; 6 note the pierce time falls
  -> to 1 s with the thickness; 7 warning Thickness4=6, 9, 9, -1, 1: the sign of the lead-in length
  -> is lost; 7 note the feed rate rises to 9 mm/min with the thickness; 7 note the pierce time 9 is
  -> off the course of its neighbours, by which it would be about 1
[Processes]|Process1=P|[P]|Thickness1=3,5mm, 1, 9, 1, 1|Thickness2=-4, 1, 8, 1|Thickness3=mm, 1, 7, 1 ->
  -> 4 warning Thickness1=3,5mm, 1, 9, 1, 1: decimals stand behind a point; what is behind a comma
  -> is the next number; 5 warning Thickness2=-4, 1, 8, 1: the thickness is below 0; 5 note -4 mm
  -> does not lie above the 3 mm before it; 6 warning Thickness3=mm, 1, 7, 1: there is no thickness,
  -> which reads as 0; 6 note 0 mm does not lie above the 3 mm before it
[Processes]|Process1=\x81 \xE4|[\x81 \xE4]|; \xC3\xBC -> 2 warning byte 129 is no character: names
  -> and texts end in front of it or show a gap; 2 warning the section of this name would be saved
  -> as [] and not be found again: it has a character that does not print; 3 warning byte 129 is no
  -> character: names and texts end in front of it or show a gap; 4 warning the accents are in
  -> UTF-8, of which the windows show two characters each
[Processes]|Process1=P|[P]|Thickness1=3, 1, 900, 1|Thickness2=3, 1, 900, 1|Thickness3=4, 1, 0, 1 ->
  -> 5 note 3 mm does not lie above the 3 mm before it; 6 note the feed rate is 0: nothing is cut
[Processes]|Process1=P|[P]|Thickness1=3, .3, 900, 1|Thickness2=6, .2, 901, 1|Thickness3=8, .2, 900, 1 ->
  -> 5 note the feed rate rises to 901 mm/min with the thickness; 5 note the pierce time falls to
  -> 0.2 s with the thickness
[Processes]|Process1=P|[P]|Thickness1=3, 1, 9000, 1|Thickness2=6, 2, 450, 1|Thickness3=12, 4, 2250, 1|Thickness4=24, 8, 1120, 1 ->
  -> 5 note the feed rate 450 is off the course of its neighbours, by which it would be about 4500
[Processes]|Process1=P|[P]|Thickness1=3, 1, 900, 1|Thickness2=6, 2, 4500, 1|Thickness3=12, 40, 2250, 1|Thickness4=24, 8, 1120, 1 ->
  -> 4 note the feed rate 900 is off the course of its neighbours, by which it would be about 9000;
  -> 6 note the pierce time 40 is off the course of its neighbours, by which it would be about 4
[Processes]|Process1=P|[P]|Thickness1=3, 1, 9000, 1|Thickness2=6, 1.1, 4500, 1|Thickness3=12, 4, 2250, 1|Thickness4=24, 8, 1120, 1 ->
)",
         [](const string& bytes, Findings& findings) {
             inspect::Tables tables;
             inspect::CheckProcesses("c:\\p", bytes, tables, findings);
         });
}

TEST(Check, MaterialTypes) {
    Look(R"(
[Materials]|Mat1=MS|Mat2=ms|Mat3=XX|Mat5=YY|[MS]|Density=7,85|Description={1-51:d}|[Old] -> 3
  -> warning ms shares the section [ms] with another name: what is set for one of them is lost; 4
  -> warning there is no section [XX]: XX has no description and the density 0; 5 warning Mat5 is
  -> not read: Mat4 is missing or empty; 7 warning Density=7,85 reads as 7: decimals stand behind a
  -> point; 8 warning "ddddddddddddddddddddddddddddddddddddddddddddddddddd" is cut to 50 characters;
  -> 9 warning [Old] is not used: nothing lists it, and the next save leaves it out
[Materials]|Mat1=A|Mat2=B|Mat3=C|Mat4=materials|[A]|Density=.49|[B]|Density=23|[C]|Density=none -> 5
  -> warning materials shares the section [materials] with another name: what is set for one of them
  -> is lost; 7 note A: a density of .49 t/m3 is not between 0.5 and 23; 11 warning Density=none
  -> reads as 0: it does not begin with a number; 11 note C: a density of 0 t/m3 is not between 0.5
  -> and 23
[Materials]|{1-61:Mat#=M#|}{1-61:[M#]|Density=1|} -> 62 error there are more than 60 material types:
  -> the file cannot be opened; 183 warning [M61] is not used: nothing lists it, and the next save
  -> leaves it out
)",
         [](const string& bytes, Findings& findings) {
             inspect::Tables tables;
             inspect::CheckMaterialTypes("c:\\m", bytes, tables, findings);
         });
}

// Ranges in mm: P -1 to 25; there are MS and SS.
TEST(Check, MaterialLists) {
    Look(R"(
[Mat1]|Type=MS|Process=P|Thickness=25mm|[Mat2]|Type=ms|Process=p|Thickness=25.1|[Mat3]|Type=ms -> 8
  -> warning 25.1 mm is outside the -1 to 25 mm of p: it is pulled inside when the list is opened; 9
  -> warning the entry names no process
[Mat1]|Type=SS|Process=P|Thickness=-1|[Mat2]|Type=XX|Process=Q|Thickness=99|[Mat3]|Type=SS|Process=p|Thickness=-1mm|[Mat4]|Type=MS|Process=P|Thickness=-1|[Mat5]|Type=SS|Thickness=-1 ->
  -> 6 warning there is no material type XX: nothing can be cut from this entry; 7 warning there is
  -> no process Q: nothing can be cut with this entry; 9 note entry 3 is the same as entry 1; 17
  -> warning the entry names no process
[Mat1]|Type=SS|Process=P|Thickness=1,5mm|Width=3|[Mat3]|Type=SS -> 4 warning Thickness=1,5mm reads
  -> as 1: decimals stand behind a point; 5 note Width is not read here, and the next save leaves it
  -> out; 6 warning [Mat3] is not used: nothing lists it, and the next save leaves it out
{1-199:[Mat#]|Type=MS|Process=P|Thickness=#e-3|} -> 793 note one entry more, and the list cannot be
  -> opened again
{1-200:[Mat#]|Type=MS|Process=P|Thickness=#e-3|} -> 797 error there are more than 199 entries: the
  -> list cannot be opened
)",
         [](const string& bytes, Findings& findings) {
             inspect::Tables tables;
             Findings none;
             inspect::CheckProcesses("c:\\p",
                                     "[Processes]\nProcess1=P\n[P]\nThickness1=-1\nThickness2=25\n",
                                     tables, none);
             inspect::CheckMaterialTypes("c:\\m", "[Materials]\nMat1=MS\nMat2=SS\n", tables, none);
             inspect::CheckMaterialList("c:\\l", bytes, materiallist::kExistingDirectory, tables,
                                        findings);
         });
}

}  // namespace
