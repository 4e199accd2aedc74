// Writing process.dat, byte for byte, and that it fits together with reading it.
#include <gtest/gtest.h>

#include <random>

#include "process/process_file.h"
#include "tests/process/process_file_fixture.h"
#include "tests/support/source_files.h"
#include "text/clean_text.h"

namespace process {
namespace {

using namespace std::string_literals;
using ProcessFileWrite = ProcessFile;

// What showing every process in the process window does to its texts.
void Show(ProcessTable& table) {
    for (int n = 1; n <= table.ProcessCount; ++n) {
        ProcessRecord& record = table.Process(n);
        record.Name = text::CleanText(record.Name);
        for (auto* code : {&record.Leadin, &record.Leadout}) *code = text::CleanText(*code);
    }
}

TEST_F(ProcessFileWrite, WritesOneProcessAndNone) {
    drives.MakeDir("c:\\Tolvarin\\System");
    EXPECT_EQ(Written(), test::SourceFile("tests/process/golden/empty.dat"));
    EXPECT_TRUE(ReadProcessFile());
    EXPECT_EQ(table.ProcessCount, 0);
    table.ProcessCount = 1;
    table.Process(1) = ExampleRecord();
    const std::string golden = test::SourceFile("tests/process/golden/one_process.dat");
    EXPECT_EQ(Written(), golden);
    Shared() = {};
    EXPECT_TRUE(ReadProcessFile());
    Show(table);
    EXPECT_EQ(table.Process(1), ExampleRecord());
    EXPECT_EQ(Written(), golden);
}

// Every key that is left out somewhere, every lead code, names at their limits.
TEST_F(ProcessFileWrite, WritesEveryKindOfProcess) {
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

TEST_F(ProcessFileWrite, TrimsNamesAfterTheyWereListed) {
    drives.MakeDir("c:\\Tolvarin\\System");
    table.ProcessCount = 1;
    table.Process(1).Name = "  Two  parts ";
    const std::string bytes = Written();
    EXPECT_NE(bytes.find("\r\nProcess1=  Two  parts" + std::string(52, ' ')), bytes.npos);
    EXPECT_NE(bytes.find("\r\n[Two  parts]\r\n"), bytes.npos);
    EXPECT_EQ(table.Process(1).Name.View(), "Two  parts" + std::string(54, ' '));
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

TEST_F(ProcessFileWrite, HoldsItsCapacityAndNotOneMore) {
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
        EXPECT_THROW(table.Process(outside), errors::FatalError);
    }
    EXPECT_THROW(table.Process(1).Row(0), errors::FatalError);
    EXPECT_THROW(table.Process(1).Row(101), errors::FatalError);
}

TEST_F(ProcessFileWrite, TheDemonstrationFileComesBackByteForByte) {
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

TEST_F(ProcessFileWrite, WhatIsWrittenReadsBackTheSame) {
    drives.MakeDir("c:\\Tolvarin\\System");
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Shared() = {};
        FillAtRandom(table, seed);
        const std::string written = Written();
        EXPECT_EQ(Written(), written) << seed;
        const ProcessTable before = table;
        Shared() = {};
        ASSERT_TRUE(ReadProcessFile());
        Show(table);
        ASSERT_EQ(table.ProcessCount, before.ProcessCount) << seed;
        for (std::size_t n = 0; n < table.Processes.size(); ++n) {
            ASSERT_EQ(table.Processes[n], before.Processes[n]) << seed << " " << n;
        }
        EXPECT_EQ(Written(), written) << seed;
    }
}

}  // namespace
}  // namespace process
