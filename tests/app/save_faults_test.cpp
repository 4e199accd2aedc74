// Saving the data files when something goes wrong: afterwards the old or the new file is there,
// whole, and a failure that the program survives leaves no temporary file behind.
#include <gtest/gtest.h>

#include <functional>

#include "app/system_config.h"
#include "materiallist/material_list_table.h"
#include "materialtypes/material_type_table.h"
#include "platform/errors.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "tests/support/temp_drives.h"

#ifndef _WIN32
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>
#endif
#ifdef __linux__
#include <sys/ptrace.h>
#endif

namespace {

const std::string kFolder = "c:\\tolvarin\\system";

struct DataFile {
    std::string path;
    std::function<bool()> save;  // false when the file was refused
};

class SaveFaults : public ::testing::Test {
  protected:
    SaveFaults() {
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
        process::ResetProcesses();
        materialtypes::ResetMaterialTypes();
        materiallist::ResetMaterialList();
        drives.MakeDir(kFolder);
        // Full tables, so that there is something to write.
        process::TheProcesses().ProcessCount = 20;
        for (int n = 1; n <= 20; ++n) {
            process::TheProcesses().Process(n).Name = "Process " + std::to_string(n);
            process::TheProcesses().Process(n).ThicknessCount = 100;
        }
        materialtypes::TheMaterialTypes().Count = 60;
        materiallist::TheMaterialList().EntryCount = 199;
    }
    ~SaveFaults() override {
        process::ResetProcesses();
        materialtypes::ResetMaterialTypes();
        materiallist::ResetMaterialList();
    }

    static bool Saves(const std::function<void()>& save) {
        try {
            save();
            return true;
        } catch (const platform::FileError&) {
            return false;
        }
    }

    test::TempDrives drives;
    const std::vector<DataFile> files = {
        {kFolder + "\\process.dat", [] { return Saves(process::WriteProcessFile); }},
        {kFolder + "\\material.dat",
         [] { return Saves([] { materiallist::WriteMaterialList(1); }); }},
        {kFolder + "\\mattypes.dat", [] { return materialtypes::WriteMaterialTypes(); }},
    };
};

TEST_F(SaveFaults, ARefusedTargetStaysAsItIs) {
    for (const DataFile& file : files) {
        drives.Write(file.path, "old");
        drives.SetReadOnly(file.path, true);
        EXPECT_FALSE(file.save());
        EXPECT_EQ(drives.Read(file.path), "old");
        EXPECT_EQ(drives.Count(kFolder), 1);
        drives.SetReadOnly(file.path, false);
        std::filesystem::remove(drives.Path(file.path));
        drives.MakeDir(file.path);
        EXPECT_FALSE(file.save());
        EXPECT_EQ(drives.Count(kFolder), 1);
        std::filesystem::remove(drives.Path(file.path));
    }
    std::filesystem::remove(drives.Path(kFolder));
    for (const DataFile& file : files) EXPECT_FALSE(file.save());
    EXPECT_FALSE(drives.Exists(kFolder));
}

#ifndef _WIN32

// What a child process ends with that runs `work`; -1 when it is killed.
int RunInChild(const std::function<int()>& work) {
    const pid_t child = fork();
    if (child == 0) _exit(work());
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(SaveFaults, AFullDiskLeavesTheOldFile) {
    for (const DataFile& file : files) {
        ASSERT_TRUE(file.save());
        const auto size = drives.Read(file.path).size();
        for (const std::size_t room : {std::size_t{0}, std::size_t{1}, size / 2, size - 1, size}) {
            drives.Write(file.path, "old");
            const int result = RunInChild([&] {
                signal(SIGXFSZ, SIG_IGN);
                const rlimit limit{room, room};
                if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 9;
                return file.save() ? 0 : 1;
            });
            EXPECT_EQ(result, room < size ? 1 : 0) << room;
            EXPECT_EQ(drives.Read(file.path) == "old", room < size);
            EXPECT_EQ(drives.Count(kFolder), 1);
        }
        std::filesystem::remove(drives.Path(file.path));
    }
}

// The old and the new process file.
class KilledSaves : public SaveFaults {
  protected:
    KilledSaves() {
        process::WriteProcessFile();
        newBytes = drives.Read(path);
        process::TheProcesses().ProcessCount = 12;
        process::WriteProcessFile();
        oldBytes = drives.Read(path);
        process::TheProcesses().ProcessCount = 20;
    }
    // Whether the new file is there; fails the test when neither is.
    bool IsNew() {
        const std::string bytes = drives.Read(path);
        EXPECT_TRUE(bytes == newBytes || bytes == oldBytes) << bytes.size() << " bytes";
        return bytes == newBytes;
    }
    // An empty directory but for the old file, as if what a killed save left had been removed.
    void RestoreOld() {
        std::filesystem::remove_all(drives.Path(kFolder));
        drives.Write(path, oldBytes);
    }
    const std::string path = kFolder + "\\process.dat";
    std::string oldBytes, newBytes;
};

TEST_F(KilledSaves, AtAnyMoment) {
    std::mt19937 random(1);
    for (int kills = 0; kills < 60; ++kills) {
        const pid_t child = fork();
        if (child == 0) {
            for (int saves = 0;; ++saves) {
                process::TheProcesses().ProcessCount = saves % 2 == 0 ? 20 : 12;
                process::WriteProcessFile();
            }
        }
        usleep(static_cast<useconds_t>(random() % 20000));
        kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status));
        IsNew();
    }
    // What the killed ones left in the directory is in nobody's way.
    process::WriteProcessFile();
    EXPECT_TRUE(IsNew());
}

#endif  // _WIN32

#ifdef __linux__

// Lets a child save and kills it at its n-th stop; it stops before and after each system call.
// False when it has ended by itself before.
bool KillAtStop(int n) {
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(9);
        raise(SIGSTOP);
        process::WriteProcessFile();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    for (int stop = 0; WIFSTOPPED(status); ++stop) {
        if (stop == n) {
            kill(child, SIGKILL);
        } else {
            ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        }
        waitpid(child, &status, 0);
    }
    EXPECT_FALSE(WIFEXITED(status) && WEXITSTATUS(status) != 0) << WEXITSTATUS(status);
    return WIFSIGNALED(status);
}

TEST_F(KilledSaves, BeforeAndAfterEachSystemCall) {
    if (RunInChild([] { return ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0 ? 0 : 1; }) != 0) {
        GTEST_SKIP() << "nothing may be traced here";
    }
    int asOld = 0, asNew = 0, leftOver = 0;
    for (int stop = 1;; ++stop) {
        ASSERT_LT(stop, 2000);
        RestoreOld();
        const bool killed = KillAtStop(stop);
        ++(IsNew() ? asNew : asOld);
        leftOver += drives.Count(kFolder) - 1;
        if (!killed) break;
    }
    EXPECT_TRUE(IsNew());
    EXPECT_EQ(drives.Count(kFolder), 1);
    // At least opening, writing, flushing and renaming lie before the new file is there, and
    // some of the kills must have hit a save with its temporary file half done.
    EXPECT_GE(asOld, 8);
    EXPECT_GE(asNew, 2);
    EXPECT_GE(leftOver, 4);
    RecordProperty("stops", asOld + asNew);
}

#endif  // __linux__

}  // namespace
