// Reading process.dat: its defaults, its thickness rows and what the read buffer leaves in the
// texts.
#include "process/process_file.h"

#include <gtest/gtest.h>

#include "tests/process/process_file_fixture.h"
#include "text/clean_text.h"

namespace process {
namespace {

using namespace std::string_literals;

// Names and lead codes are cut out of the one read buffer, with what earlier values left in it.
TEST_F(ProcessFile, FieldsKeepWhatTheReadBufferHolds) {
    const std::string bytes =
        "[Processes]\r\nProcess1=Plasma\r\nProcess2=Ox\r\n"
        "[Plasma]\r\nRapid=10000\r\nLineMarkRate=500\r\nLeadout=Arc \r\n"
        "Thickness1=10mm, 2.5, 1200\r\n"
        "[Ox]\r\nLeadin=A\r\nLeadout=Lines\r\nLeadoutangle=7\r\n";
    for (int call = 1; call <= 2; ++call) {  // each call begins with an empty buffer
        ASSERT_TRUE(Read(bytes));
        ASSERT_EQ(table.ProcessCount, 2);
        EXPECT_EQ(table.Process(1).Name.View(), "Plasma" + std::string(58, '\0'));
        EXPECT_EQ(table.Process(1).Leadin.View(),
                  "\0"
                  "00\0"s);
        EXPECT_EQ(table.Process(1).Leadout.View(), "Arc\0"s);
        EXPECT_EQ(table.Process(2).Name.View(), "Ox\0m, 2.5, 1200"s.append(49, '\0'));
        EXPECT_EQ(table.Process(2).Leadin.View(), "A\0\0m"s);
        EXPECT_EQ(table.Process(2).Leadout.View(), "Line");
        EXPECT_EQ(table.Process(2).Leadoutangle, 7);
    }
    // Unless the process was shown, the arc is not a code and its line is lost.
    const std::string written = Written();
    EXPECT_EQ(written.find("Leadout=Arc"), written.npos);
    EXPECT_NE(written.find("Process2=Ox\0m, 2.5, 1200\0"s), written.npos);
    EXPECT_NE(written.find("[Ox]\r\n"), written.npos);
    ASSERT_TRUE(ReadProcessFile());
    EXPECT_EQ(text::CleanText(table.Process(2).Name), "Ox");
    EXPECT_EQ(table.Process(1).Rapid, 10000);
}

TEST_F(ProcessFile, NamesAreCutAndFoundWithoutRegardToCase) {
    const std::string name64(64, 'n');
    ASSERT_TRUE(Read("[PROCESSES]\nPROCESS1= oxy-fuel \nprocess2=" + name64 + "tail\n" +
                     "[OXY-FUEL]\nrapid=7\n[" + name64 + "]\nRAPID=8\n"));
    ASSERT_EQ(table.ProcessCount, 2);
    EXPECT_EQ(table.Process(1).Rapid, 7);
    EXPECT_EQ(table.Process(2).Name.View(), name64);
    EXPECT_EQ(table.Process(2).Rapid, 8);
}

TEST_F(ProcessFile, MissingKeysTakeTheirDefaults) {
    table.Process(1).Angle = 33;
    table.Process(1).Leadoutangle = 44;
    table.Process(1).AddKerf = 1;
    const ProcessRecord& record = ReadSection("Other=1\r\n");
    EXPECT_EQ(record.Rapid, 1);
    EXPECT_EQ(record.LineMarkRate, 1);
    EXPECT_EQ(record.MinorOpenKerf, 1);
    EXPECT_EQ(record.MajorDir + record.MinorDir + record.Extension + record.Leadoutextension, 0);
    EXPECT_EQ(record.LeadoutPercent + record.LeadoutOverrun + record.AddKerf, 0);
    EXPECT_EQ(record.ThicknessCount, 0);
    // Angles are read for straight leads only and else keep what the record held.
    EXPECT_EQ(record.Angle, 33);
    EXPECT_EQ(record.Leadoutangle, 44);
    ReadSection("Leadin=A180\r\nAngle=1\r\nLeadout=line\r\nLeadoutangle=2\r\n");
    EXPECT_EQ(record.Angle, 33);
    EXPECT_EQ(record.Leadoutangle, 44);
    ReadSection("Leadin=Line\r\nLeadout=Line\r\n");
    EXPECT_EQ(record.Angle, 0);
    EXPECT_EQ(record.Leadoutangle, 0);
    // An empty value is there: it is no number, not a missing one.
    ReadSection("Rapid=\r\nMinorOpenKerf=\r\n");
    EXPECT_EQ(record.Rapid, 0);
    EXPECT_EQ(record.MinorOpenKerf, 0);
}

TEST_F(ProcessFile, IntegersRoundToEvenAndOverflowIsFatal) {
    for (const auto& [text, value] :
         std::vector<std::pair<std::string, int>>{{"2.5", 2},
                                                  {"3.5", 4},
                                                  {"-2.5", -2},
                                                  {"-.5", 0},
                                                  {"1.51%", 2},
                                                  {"3 2 7 6 7.4", 32767},
                                                  {"-32768.5", -32768},
                                                  {"x", 0}}) {
        EXPECT_EQ(ReadSection("MajorDir=" + text + "\r\n").MajorDir, value) << text;
    }
    for (const auto& [text, value] : std::vector<std::pair<std::string, int>>{
             {"5", 1}, {"-1", 1}, {".001", 1}, {"99999", 1}, {"0.0", 0}, {"no", 0}}) {
        EXPECT_EQ(ReadSection("AddKerf=" + text + "\r\n").AddKerf, value) << text;
    }
    const ProcessTable before = table;
    EXPECT_EQ(Failure("[Processes]\nProcess1=Q\nProcess2= Plasma \n[Plasma]\nExtension=32767.5\n"),
              "PROCESS.DAT: Extension=32767.5 of Plasma is outside -32768 to 32767");
    EXPECT_EQ(table.ProcessCount, before.ProcessCount);
    EXPECT_TRUE(table.Processes == before.Processes);
}

TEST_F(ProcessFile, ReadsThicknessRowsAsTheyComeFromEditors) {
    struct Case {
        std::string text;
        ThicknessRow row;
    };
    const std::vector<Case> cases = {
        {"10mm, 2.5, 1200, 5, 1.5", {10, 2.5f, 1200, 5, 1.5f}},
        {"12mm, 3, 900, 6", {12, 3, 900, 6, 0}},
        {"8,1.5,1500,4,1.2", {8, 1.5f, 1500, 4, 1.2f}},
        {"8mm, -2, 1500, 4, 1", {8, 2, 1500, 4, 1}},
        {"8mm,,1500,4,1", {8, 1500, 4, 1, 0}},
        {"10mm,,5,6", {10, 5, 6, 0, 0}},
        {"-3.5mm, -.5, about 1.5E3 fast, 4 5, 1,9", {-3.5f, .5f, 1500, 45, 1}},
        {"mm, none, 5, 6", {0, 5, 6, 0, 0}},
        {"9mm, 1, none", {9, 1, 0, 0, 0}},
        {"7mm", {7, 0, 0, 0, 0}},
        {",1,2,3,4", {0, 1, 2, 3, 4}},
        {"1e99, 1e99, 0, 0, 0", {3.40282347e38f, 3.40282347e38f, 0, 0, 0}},
    };
    std::string lines;
    for (std::size_t k = 0; k < cases.size(); ++k) {
        lines += "Thickness" + std::to_string(k + 1) + "=" + cases[k].text + "\r\n";
    }
    const ProcessRecord& record = ReadSection(lines + "Thickness99=1\r\n");
    ASSERT_EQ(record.ThicknessCount, std::ssize(cases));
    for (std::size_t k = 0; k < cases.size(); ++k) {
        EXPECT_EQ(record.Rows[k], cases[k].row) << cases[k].text;
    }
    const std::string written = Written();
    EXPECT_NE(written.find("\r\nThickness2=12mm, 3, 900, 6, 0\r\n"), written.npos);
}

TEST_F(ProcessFile, AGapEndsTheList) {
    EXPECT_TRUE(Read("[Processes]\r\nProcess1=A\r\nProcess3=C\r\n"));
    EXPECT_EQ(table.ProcessCount, 1);
    EXPECT_TRUE(Read("[Processes]\r\nProcess1=A\r\nProcess2=\r\nProcess3=C\r\n"));
    EXPECT_EQ(table.ProcessCount, 1);
    EXPECT_TRUE(Read("Process1=A\r\n[[Processes]]\r\nProcess1=A\r\n"));
    EXPECT_EQ(table.ProcessCount, 0);
    table.ProcessCount = 3;
    std::filesystem::remove(drives.Path(kPath));
    EXPECT_FALSE(ReadProcessFile());
    EXPECT_EQ(table.ProcessCount, 0);
}

TEST_F(ProcessFile, NewRecordsTakeDefaultsOrACopy) {
    table.Process(3) = ExampleRecord();
    ProcessRecord& record = table.Process(20);
    record = ExampleRecord();
    record.Name = "New";
    record.Row(2).Feedrate = 9;
    record.AddKerf = record.Extension = record.Leadoutextension = record.Leadoutangle = 5;
    InitProcessRecord(20, 0);
    ProcessRecord defaults;
    defaults.Name = "New";
    defaults.Leadin = "Line";
    defaults.Leadout = "    ";
    defaults.MajorDir = defaults.MinorDir = -1;
    defaults.MinorOpenKerf = 1;
    defaults.Rows = record.Rows;
    EXPECT_EQ(record, defaults);

    record.Row(1) = {};
    InitProcessRecord(20, 3);
    ProcessRecord copy = ExampleRecord();
    copy.Name = "New";
    copy.Row(2).Feedrate = 9;  // not in use, so not touched
    EXPECT_EQ(record, copy);
    EXPECT_EQ(table.Process(3), ExampleRecord());
    EXPECT_THROW(InitProcessRecord(21, 1), errors::FatalError);
    EXPECT_THROW(InitProcessRecord(1, 21), errors::FatalError);
}

}  // namespace
}  // namespace process
