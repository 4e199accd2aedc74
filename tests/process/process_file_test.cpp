// process.dat: what is read of files that were edited by hand, and what the next save writes. How
// whole files look after a save is seen in the tests of the windows.
#include "process/process_file.h"

#include <gtest/gtest.h>

#include <sstream>

#include "errors/errors.h"
#include "process/process_table.h"
#include "profile/profile.h"
#include "tests/support/source_files.h"
#include "text/clean_text.h"

namespace {

using namespace process;
using namespace std::string_literals;
using std::string;

// What a save makes of a file when no process was shown in between.
string Saved(const string& bytes, ProcessTable table = {}) {
    ReadProcesses(profile::Profile(bytes), table);
    return ProcessFileText(table);
}

// Lines of a section, and those that a save writes other than for a section without lines.
TEST(ProcessFile, KeysOfOneProcess) {
    const std::pair<const char*, const char*> kCases[] = {
        {"rapid=\nLineMarkRate=-1e99\nMinorOpenKerf=\nAddKerf=-.001",
         "Rapid=0|LineMarkRate=-3.402823E+38|MinorOpenKerf=0|AddKerf=1"},
        {"MajorDir=1\nMinorDir=-1\nExtension=1\nAddKerf=99999\nLeadoutextension=2",
         "MajorDir=1|MinorDir=-1|Extension=1|AddKerf=1|Leadoutextension=2"},
        // What is none of the known numbers goes.
        {"MajorDir=2\nMinorDir=-2\nMinorOpenKerf=2\nExtension=2\nLeadoutextension=-1\nAddKerf=no",
         ""},
        // Of an arc the blank is lost on the way in, and with it the code.
        {"Leadin=Arc \nLeadout=Arc ", ""},
        {"Leadin=line\nLeadout=Liner", "Leadout=Line|Leadoutangle=0"},
        {"Leadin=Line\nLeadout=Line\nLeadoutangle=1.51%",
         "Leadin=Line|Angle=0|Leadout=Line|Leadoutangle=2"},
        // Halves go to the even neighbour; 16 bits are the limit.
        {"LeadoutPercent=2.5\nLeadoutOverrun=-32768.5", "LeadoutPercent=2|LeadoutOverrun=-32768"},
        {"LeadoutPercent=3 2767.4\nLeadoutOverrun=-3.5", "LeadoutPercent=32767|LeadoutOverrun=-4"},
        // Only a thickness keeps its sign; an empty number takes the next; the list ends at a gap.
        {"Thickness1=12mm, 3, 900, 6\nThickness3=1", "Thickness1=12mm, 3, 900, 6, 0"},
        {"Thickness1=-.50mm, -2, 1500, 4, 1,9", "Thickness1=-.5mm, 2, 1500, 4, 1"},
        {"Thickness1=8mm,,1500,4,1", "Thickness1=8mm, 1500, 4, 1, 0"},
        {"Thickness1=mm, -.5, about 1.5E3 fast, none", "Thickness1=0mm, .5, 1500, 0, 0"},
        {"Thickness1=1e99, 1e7, .00001, 1234567.8, 0",
         "Thickness1=3.402823E+38mm, 1E+07, 1E-05, 1234568, 0"},
    };
    const string head = "[PROCESSES]\nprocess1= plasma \n[Plasma]\n", usual = Saved(head);
    for (const auto& [lines, expected] : kCases) {
        std::istringstream text(Saved(head + lines));
        string others;
        for (string line; std::getline(text, line);) {
            if (line[0] == ';' || usual.find("\n" + line + "\n") != usual.npos) continue;
            others.append(others.empty() ? "" : "|").append(line, 0, line.size() - 1);
        }
        EXPECT_EQ(others, expected) << lines;
    }
}

// Names are cut out of the one read buffer, with what earlier values left in it.
TEST(ProcessFile, NamesKeepWhatTheReadBufferHolds) {
    const string nnn(64, 'n'), names = "[Processes]\nProcess1=Plasma\nProcess2=Ox\nProcess3=";
    const string text = Saved(names + nnn + "tail\n[Plasma]\nThickness1=10mm, 2.5, 1200\n[" + nnn +
                              "]\nMajorDir=1");
    EXPECT_NE(text.find("\nProcess1=Plasma" + string(58, '\0') + "\r\nProcess2=Ox\0m, 2.5, 1200"s +
                        string(49, '\0') + "\r\nProcess3=" + nnn + "\r\n\r\r\n[Plasma]\r\n"),
              text.npos);
    EXPECT_NE(text.find("\r\nMajorDir=1\r\n"), text.npos);
}

TEST(ProcessFile, AGapEndsTheListAndAFailureLeavesTheTable) {
    ProcessTable table;
    ReadProcesses(profile::Profile("[Processes]\nProcess1=A\nProcess2=\nProcess3=C\n"), table);
    EXPECT_EQ(ProcessFileText(table), Saved("[Processes]\nProcess1=A\n"));
    const profile::Profile tooLarge("[Processes]\nProcess1=B\nProcess2=C\n[C]\nExtension=32767.5");
    EXPECT_THROW(ReadProcesses(tooLarge, table), errors::FatalError);
    EXPECT_EQ(table.Process(1).Name.View(), "A" + string(63, '\0'));
}

TEST(ProcessFile, TheDemonstrationFileComesBackByteForByte) {
    const string demo = test::SourceFile("demo/drives/c/tolvarin/system/process.dat");
    ProcessTable table;
    ReadProcesses(profile::Profile(demo), table);
    // What showing each process in the window does.
    for (ProcessRecord& record : table.Processes) {
        record.Name = text::CleanText(record.Name);
        for (auto* code : {&record.Leadin, &record.Leadout}) *code = text::CleanText(*code);
    }
    EXPECT_EQ(ProcessFileText(table), demo);
}

// The smallest counts from 0 down and the largest from 0 up.
TEST(ProcessFile, RangesOfThicknesses) {
    ProcessTable table;
    string list =
        "[A]\nThickness1=3mm\nThickness2=12.5, 99\nThickness3=8\nThickness5=99\n"
        "[B]\nThickness1=-3\nThickness2=-1\nThickness3=-4\nThickness4=2\n[Processes]\n";
    for (int n = 1; n <= 20; ++n) list += "Process" + std::to_string(n) + (n > 1 ? "=B\n" : "=A\n");
    ReadProcessRanges(profile::Profile(list), table);
    EXPECT_EQ(table.ProcessNames[0] + table.ProcessNames[1], "AB");
    EXPECT_EQ(table.ProcessThicknessMin[0], 0);
    EXPECT_EQ(table.ProcessThicknessMax[0], 12.5f);
    EXPECT_EQ(table.ProcessThicknessMin[19], -4);
    EXPECT_EQ(table.ProcessThicknessMax[19], 2);
    const profile::Profile tooMany(list + "Process21=B\n");
    EXPECT_THROW(ReadProcessRanges(tooMany, table), errors::FatalError);
}

}  // namespace
