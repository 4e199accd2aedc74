// A system directory with a process.dat of the test's own, and a process to write into it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "app/system_config.h"
#include "errors/errors.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "tests/support/temp_drives.h"
#include "views/view_procedures.h"

namespace process {

inline const std::string kPath = "c:\\Tolvarin\\System\\process.dat";

class ProcessFile : public ::testing::Test {
  protected:
    ProcessFile() {
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
    }

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
        } catch (const errors::FatalError& failure) {
            return failure.what();
        }
        ADD_FAILURE() << "nothing failed";
        return {};
    }
    test::TempDrives drives;
    ProcessTable& table = TheProcesses();
};

inline ProcessRecord ExampleRecord() {
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

}  // namespace process
