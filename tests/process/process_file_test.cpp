// process.dat: what is read from it, what is written, and that the two fit together.
#include "process/process_file.h"

#include <gtest/gtest.h>

#include <random>

#include "app/system_config.h"
#include "platform/errors.h"
#include "process/process_table.h"
#include "tests/support/source_files.h"
#include "tests/support/temp_drives.h"
#include "views/view_procedures.h"

namespace process {
namespace {

using namespace std::string_literals;

const std::string kPath = "c:\\Tolvarin\\System\\process.dat";

class ProcessFile : public ::testing::Test {
  protected:
    ProcessFile() {
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
        ResetProcesses();
    }
    ~ProcessFile() override { ResetProcesses(); }

    bool Read(const std::string& bytes) {
        drives.Write(kPath, bytes);
        return ReadProcessFile();
    }
    // One process P with these lines in its section.
    const ProcessRecord& ReadSection(const std::string& lines) {
        EXPECT_TRUE(Read("[Processes]\r\nProcess1=P\r\n[P]\r\n" + lines));
        EXPECT_EQ(table.ProcessCount, 1);
        return table.Process(1);
    }
    std::string Written() {
        WriteProcessFile();
        EXPECT_EQ(drives.Count("c:\\Tolvarin\\System"), 1);
        return drives.Read(kPath);
    }
    // What the text of the failure is; fails the test when the file is read.
    std::string Failure(const std::string& bytes) {
        try {
            Read(bytes);
        } catch (const platform::FatalError& failure) {
            return failure.what();
        }
        ADD_FAILURE() << "nothing failed";
        return {};
    }
    test::TempDrives drives;
    ProcessTable& table = TheProcesses();
};

ProcessRecord ExampleRecord() {
    ProcessRecord record;
    record.Name = "Plasma";
    record.Rapid = 10000;
    record.LineMarkRate = 5000;
    record.Leadin = kLeadLine;
    record.Angle = 45;
    record.Leadout = kLeadArc90;
    record.LeadoutPercent = 50;
    record.LeadoutOverrun = 2;
    record.MajorDir = -1;
    record.MinorDir = 1;
    record.MinorOpenKerf = 1;
    record.ThicknessCount = 1;
    record.Row(1) = {10, 2.5f, 1200, 5, 1.5f};
    return record;
}

// What showing every process in the process window does to its texts.
void Show(ProcessTable& table) {
    for (int n = 1; n <= table.ProcessCount; ++n) {
        ProcessRecord& record = table.Process(n);
        record.Name = views::CleanText(record.Name);
        for (auto* code : {&record.Leadin, &record.Leadout}) *code = views::CleanText(*code);
    }
}

TEST_F(ProcessFile, WritesOneProcessAndNone) {
    drives.MakeDir("c:\\Tolvarin\\System");
    EXPECT_EQ(Written(), test::SourceFile("tests/process/golden/empty.dat"));
    EXPECT_TRUE(ReadProcessFile());
    EXPECT_EQ(table.ProcessCount, 0);
    table.ProcessCount = 1;
    table.Process(1) = ExampleRecord();
    const std::string golden = test::SourceFile("tests/process/golden/one_process.dat");
    EXPECT_EQ(Written(), golden);
    ResetProcesses();
    EXPECT_TRUE(ReadProcessFile());
    Show(table);
    EXPECT_EQ(table.Process(1), ExampleRecord());
    EXPECT_EQ(Written(), golden);
}

// Every key that is left out somewhere, every lead code, names at their limits.
TEST_F(ProcessFile, WritesEveryKindOfProcess) {
    drives.MakeDir("c:\\Tolvarin\\System");
    table.ProcessCount = 4;
    ProcessRecord& line = table.Process(1);
    line = ExampleRecord();
    line.Name = "Plasma 260A, oxygen over air, nozzle table B, plates over 20 mm.";
    line.Rapid = 10000.5f;
    line.LineMarkRate = 0;
    line.Angle = -45;
    line.Leadout = kLeadLine;
    line.Leadoutangle = 90;
    line.LeadoutOverrun = -3;
    line.MajorDir = 1;
    line.MinorDir = -1;
    line.MinorOpenKerf = 0;
    line.Extension = line.Leadoutextension = line.AddKerf = 1;
    line.ThicknessCount = 4;
    line.Row(1) = {10, 2.5f, 1200, 5, 0};
    line.Row(2) = {.5f, .25f, 6400, .75f, 1.5f};
    line.Row(3) = {-12.7f, -1, 0, -.5f, 0};
    line.Row(4) = {1234567, 1e7f, 10.f / 3, 1e-5f, 1e-4f};
    ProcessRecord& arc = table.Process(2);
    arc.Name = "X";
    arc.Rapid = 1e7f;
    arc.LineMarkRate = .1f;
    arc.Leadin = kLeadArc90;
    arc.Angle = 30;
    arc.Leadout = kLeadArc180;
    arc.Leadoutangle = 30;
    arc.MinorOpenKerf = -1;
    ProcessRecord& odd = table.Process(3);
    odd.Name = "S\xE4gen \xC9";
    odd.Leadin = kLeadArc180;
    odd.Leadout = kLeadArc90;
    odd.LeadoutPercent = 32767;
    odd.LeadoutOverrun = -32768;
    odd.MajorDir = 2;
    odd.MinorDir = -2;
    odd.MinorOpenKerf = 2;
    odd.Extension = odd.Leadoutextension = odd.AddKerf = -1;
    ProcessRecord& raw = table.Process(4);
    raw.Name = "Ox\0m, 2.5, 1200"s.append(49, '\0');
    raw.Rapid = -1;
    raw.LineMarkRate = 1;
    raw.Leadin = "Arc\0"s;
    raw.Leadout = "line";
    raw.LeadoutPercent = 1;
    raw.LeadoutOverrun = 2;
    raw.MinorOpenKerf = 1;
    raw.Extension = raw.Leadoutextension = 2;
    EXPECT_EQ(Written(), test::SourceFile("tests/process/golden/every_kind.dat"));
}

TEST_F(ProcessFile, TrimsNamesAfterTheyWereListed) {
    drives.MakeDir("c:\\Tolvarin\\System");
    table.ProcessCount = 1;
    table.Process(1).Name = "  Two  parts ";
    const std::string bytes = Written();
    EXPECT_NE(bytes.find("\r\nProcess1=  Two  parts" + std::string(52, ' ')), bytes.npos);
    EXPECT_NE(bytes.find("\r\n[Two  parts]\r\n"), bytes.npos);
    EXPECT_EQ(table.Process(1).Name.View(), "Two  parts" + std::string(54, ' '));
}

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
    EXPECT_EQ(views::CleanText(table.Process(2).Name), "Ox");
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

TEST_F(ProcessFile, TakesFieldsOffARow) {
    std::string row = "8mm, a-2.5,x";
    EXPECT_EQ(NextNumberField(row), "2.5,x");
    EXPECT_EQ(row, " a-2.5,x");
    EXPECT_EQ(NextNumberField(row), "");
    EXPECT_EQ(row, "x");
    EXPECT_EQ(NextNumberField(row), "");
    row.clear();
    EXPECT_EQ(NextNumberField(row), "0");
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

// A file with nothing left out, written line by line without the code under test.
std::string FullFile(int processes, int rows) {
    const auto name = [](int n) { return "Process No. " + std::to_string(n); };
    std::string file =
        "; PROCESS.DAT\r\n; Holds times etc for different processes\r\n\r\r\n[Processes]\r\n"
        "; This is a List of valid processes on the system\r\n";
    for (int n = 1; n <= processes; ++n) {
        std::string field = name(n);
        field.resize(64, ' ');
        file += "Process" + std::to_string(n) + "=" + field + "\r\n";
    }
    for (int n = 1; n <= processes; ++n) {
        file += "\r\r\n[" + name(n) +
                "]\r\n; Rapid Traverse rate (mm/min)\r\nRapid=" + std::to_string(1000 * n) +
                "\r\nLineMarkRate=6000\r\n; Default leadin type etc\r\nLeadin=Line\r\n"
                "; Default leadin angle - zero if missing\r\nAngle=" +
                std::to_string(n) +
                "\r\n; default Percent of Leadin Length and leadout Overrun distance\r\n"
                "LeadoutPercent=50\r\nLeadoutOverrun=3\r\nMajorDir=-1\r\nMinorDir=1\r\n"
                "MinorOpenKerf=0\r\nExtension=1\r\nAddKerf=1\r\n"
                "; List of valid thicknesses for this process\r\n"
                "; Thickness, Pierce time(secs), Feedrate(mm/min), Default Leadin(mm), "
                "optional Nozzle size\r\n";
        for (int k = 1; k <= rows; ++k) {
            file += "Thickness" + std::to_string(k) + "=" + std::to_string(k) + "mm, " +
                    std::to_string(n) + ".5, " + std::to_string(7000 - k) + ", 4, 1.5\r\n";
        }
        file += "Leadout=A180\r\nLeadoutextension=1\r\n";
    }
    return file;
}

TEST_F(ProcessFile, HoldsItsCapacityAndNotOneMore) {
    const std::string full = FullFile(20, 100);
    ASSERT_TRUE(Read(full));
    EXPECT_EQ(table.ProcessCount, 20);
    EXPECT_EQ(table.Process(20).Row(100), (ThicknessRow{100, 20.5f, 6900, 4, 1.5f}));
    Show(table);
    EXPECT_EQ(Written(), full);

    const ProcessTable before = table;
    EXPECT_EQ(Failure(FullFile(21, 1)), "PROCESS.DAT lists more than 20 processes");
    EXPECT_EQ(Failure(FullFile(2, 101)),
              "PROCESS.DAT lists more than 100 thicknesses for Process No. 1");
    EXPECT_EQ(table.ProcessCount, 20);
    EXPECT_TRUE(table.Processes == before.Processes);
    for (const int outside : {-1, 0, 21}) {
        EXPECT_THROW(table.Process(outside), platform::FatalError);
    }
    EXPECT_THROW(table.Process(1).Row(0), platform::FatalError);
    EXPECT_THROW(table.Process(1).Row(101), platform::FatalError);
}

TEST_F(ProcessFile, TheDemonstrationFileComesBackByteForByte) {
    const std::string demo = test::SourceFile("demo/drives/c/tolvarin/system/process.dat");
    ASSERT_TRUE(Read(demo));
    Show(table);
    EXPECT_EQ(Written(), demo);
}

// A table of values that the format can hold, at random.
void FillAtRandom(ProcessTable& table, unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    const auto single = [&](int least = 0) {
        return static_cast<float>(below(1'000'000) + least) / 1000;
    };
    const auto integer = [&] { return static_cast<std::int16_t>(below(65536) - 32768); };
    const auto one = [&] { return static_cast<std::int16_t>(below(3) - 1); };
    const auto flag = [&] { return static_cast<std::int16_t>(below(2)); };
    const std::string_view codes[] = {kLeadLine, kLeadArc90, kLeadArc180, kLeadNone};
    table.ProcessCount = static_cast<std::int16_t>(below(21));
    for (int n = 1; n <= table.ProcessCount; ++n) {
        ProcessRecord& record = table.Process(n);
        std::string name(1, static_cast<char>('A' + n));  // so that no two are the same
        for (int length = below(64); length > 0; --length) {
            const int code = below(190);
            name += static_cast<char>(code < 95 ? 32 + code : 66 + code);  // up to 126, from 161
        }
        record.Name = name;
        record.Rapid = single(-500'000);
        record.LineMarkRate = single();
        record.Leadin = codes[below(3)];
        if (record.Leadin.View() == kLeadLine) record.Angle = integer();
        record.Leadout = codes[below(4)];
        if (record.Leadout.View() == kLeadLine) record.Leadoutangle = integer();
        record.LeadoutPercent = integer();
        record.LeadoutOverrun = integer();
        record.MajorDir = one();
        record.MinorDir = one();
        record.MinorOpenKerf = one();
        record.Extension = flag();
        record.Leadoutextension = static_cast<std::int16_t>(below(32768));
        record.AddKerf = flag();
        record.ThicknessCount = static_cast<std::int16_t>(below(101));
        for (int k = 1; k <= record.ThicknessCount; ++k) {
            record.Row(k) = {single(-500'000), single(), single(), single(), single()};
        }
    }
}

TEST_F(ProcessFile, WhatIsWrittenReadsBackTheSame) {
    drives.MakeDir("c:\\Tolvarin\\System");
    for (unsigned seed = 1; seed <= 40; ++seed) {
        ResetProcesses();
        FillAtRandom(table, seed);
        const std::string written = Written();
        EXPECT_EQ(Written(), written) << seed;
        const ProcessTable before = table;
        ResetProcesses();
        ASSERT_TRUE(ReadProcessFile());
        Show(table);
        ASSERT_EQ(table.ProcessCount, before.ProcessCount) << seed;
        for (std::size_t n = 0; n < table.Processes.size(); ++n) {
            ASSERT_EQ(table.Processes[n], before.Processes[n]) << seed << " " << n;
        }
        EXPECT_EQ(Written(), written) << seed;
    }
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
    EXPECT_THROW(InitProcessRecord(21, 1), platform::FatalError);
    EXPECT_THROW(InitProcessRecord(1, 21), platform::FatalError);
}

}  // namespace
}  // namespace process
