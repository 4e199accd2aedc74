// On Linux a backup's batch file becomes a command in a terminal. All programs are the test's own.
#ifndef _WIN32
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "directories/backup.h"
#include "errors/errors.h"
#include "platform/files.h"
#include "tests/support/environment.h"
#include "tests/support/temp_drives.h"

namespace {

TEST(Terminal, RunsTheWordsOfTheBatchFile) {
    const test::TempDrives drives;
    const auto bin = drives.Path("d:\\bin");
    const std::string batch = "c:\\QVBACKUP.BAT";
    const auto program = [&](const std::string& name, const std::string& script) {
        drives.Write("d:\\bin\\" + name, "#!/bin/sh\n" + script);
        std::filesystem::permissions(bin / name, std::filesystem::perms::owner_all);
    };
    const test::Environment path("PATH",
                                 "relative::" + (bin / "none").string() + ":" + bin.string());
    const directories::BackupJob job{"x", "c:\\t\\USER\\PROD\\M\xFCller  $(id) `id` 'a;\\*.*",
                                     "a:"};
    drives.Write(batch, job.BatchFile());

    EXPECT_FALSE(platform::StartBatchFile(batch)) << "nothing is there";
    program("x-terminal-emulator", "[ \"$1\" = -e ] && shift; exec \"$@\" </dev/null >said");
    EXPECT_FALSE(platform::StartBatchFile(batch)) << "no quarvel-data";
    program("quarvel-data", "printf '[%s]\\n' \"$@\"; exit 2");
    const std::string words =
        "[backup]\n[c:\\t\\USER\\PROD\\M\xC3\xBCller  $(id) `id` 'a;\\*.*]\n[a:]\n[/s]\n\nPress "
        "Enter to "
        "close this window. ";
    for (const std::string first : {"", "first\n"}) {
        if (!first.empty()) program("xdg-terminal-exec", "(echo first; \"$@\" </dev/null) >said");
        ASSERT_TRUE(platform::StartBatchFile(batch));
        std::string said;  // in the batch file's directory
        for (int tries = 0; tries < 500 && !said.ends_with("window. "); ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            if (drives.Exists("c:\\said")) said = drives.Read("c:\\said");
        }
        EXPECT_EQ(said, first + words);
        std::filesystem::remove(drives.Path("c:\\said"));
    }
    drives.Write("d:\\bin\\xdg-terminal-exec", "#!/nowhere/sh");
    EXPECT_THROW(platform::StartBatchFile(batch), errors::FileError);
    for (const char* none : {"", "@echo off\r\nbackup\r\n", "rem backup c:\\a a:"}) {
        drives.Write(batch, none);
        EXPECT_FALSE(platform::StartBatchFile(batch)) << none;
    }
}

}  // namespace
#endif
