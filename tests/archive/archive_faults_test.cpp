// Backups and restores while the disk fails, the program is killed, or there is no room or right.
#include "tests/archive/archive_fixture.h"
#include "tests/support/environment.h"
#include "tests/support/one_fault.h"

#ifndef _WIN32
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace archive {
namespace {

// Whatever goes wrong: what is called a backup is one, and in its place stands the old or the new.
class ArchiveFaults : public Archive {
  protected:
    string Backing() { return DoBackup() == kAllRight ? "" : said; }
    string Restoring() { return DoRestore("1", true) == kAllRight ? "" : said; }

    void CheckBackups(const string& after) {
        for (const Stored& stored : All()) {
            if (stored.whole) {
                EXPECT_EQ(DoVerify(stored.name), kAllRight) << after << said;
            }
        }
        EXPECT_EQ(Place(), before) << after;
        EXPECT_EQ(DoBackup(), kAllRight) << after << said;
        for (const Stored& stored : All()) EXPECT_TRUE(stored.whole) << after;
    }
    void CheckPlace(const string& after, bool done) {
        int olds = 0;
        for (const auto& entry : fs::directory_iterator(drives.Path("c:\\tolvarin\\USER\\PROD"))) {
            olds += TreeIn(entry) == old;
        }
        const Tree now = Place();
        EXPECT_TRUE(now == before || now == old) << after;
        EXPECT_EQ(olds, 1) << after;
        EXPECT_TRUE(!done || now == before) << after;
        EXPECT_EQ(DoRestore("1", true), kAllRight) << after << said;
        for (const auto& entry : fs::directory_iterator(drives.Path("c:\\tolvarin\\USER\\PROD"))) {
            EXPECT_NE(entry.path().extension(), ".restoring") << after;
        }
    }
    void PrepareBackup() { fs::remove_all(drives.Path("d:\\QVBACKUP")); }
    void PrepareRestore() {
        fs::remove_all(drives.Path("c:\\tolvarin\\USER\\PROD"));
        drives.Write(kPlace + "\\OLD", "old");
        old = Place();
    }

    Tree before, old;
};

class ArchiveInMemory : test::InMemory, public ArchiveFaults {};

TEST_F(ArchiveInMemory, LeavesNoHalfBackupAndTheOldOrTheNew) {
    MakeJob(string(5000, 'x'));
    before = Place();
    for (const bool restoring : {false, true}) {
        const auto work = [&] { return restoring ? Restoring() : Backing(); };
        std::vector<string> calls;
        const auto runWith = [&](const test::Fault& fault, std::size_t n) {
            restoring ? PrepareRestore() : PrepareBackup();
            return test::RunWith(fault, n, work, [] {}, calls);
        };
        // The first time of all, a process asks for more than later, such as the time zone.
        restoring ? PrepareRestore() : PrepareBackup();
        ASSERT_EQ(work(), "");
        ASSERT_EQ(runWith({}, 0), "");
        if (calls.empty()) GTEST_SKIP() << "no call can be made to fail here";
        // What gets a name is on the disk before, and the name itself is after.
#ifdef _WIN32  // where files are flushed, and folders have no need of it
        const char* const orders[] = {"flush flush flush rename ",
                                      "flush flush rename rename rename rename "};
#else
        const char* const orders[] = {"flush rename flush ", "flush flush rename rename flush "};
#endif
        EXPECT_EQ(test::OrderOf(calls), orders[restoring]);
        const auto cases = test::CasesOf(calls, false, 30);
        std::cout << (restoring ? "restore: " : "backup: ") << calls.size() << " calls, "
                  << cases.size() << " cases\n";
        for (const auto& [n, fault] : cases) {
            const string told = runWith(fault, n);
            const string after = calls.at(n - 1) + " " + string(fault.how) + " with " +
                                 std::to_string(fault.error) + ": " + told + "\n";
            ASSERT_NE(told, "CRASHED") << after;
            const bool done = told.empty() && fault.how != "killed";
            const bool renaming = calls[n - 1] == "MoveFileExW";
            // A share may have done what it reports as failed.
            EXPECT_TRUE(done || restoring || fault.how != "done" || !renaming) << after;
            if (fault.how == "refused") {
                // A drive without such a change of name gets there in steps; the reason is told.
                const std::error_code why(fault.error, std::system_category());
                EXPECT_TRUE(done || told.find(Reason(why)) != told.npos) << after;
                EXPECT_TRUE(done || !renaming || fault.error != EINVAL) << after;
                const bool unread = calls[n - 1] == "ReadFile";
                const bool unsaved = calls[n - 1] == "FlushFileBuffers";
                EXPECT_FALSE(done && (unread || unsaved) && fault.error == test::kErrors[1])
                    << after;
            }
            if (restoring) {
                CheckPlace(after, done);
            } else {
                if (done) {
                    EXPECT_EQ(DoRestore("1", false), kAllRight) << after << said;
                }
                CheckBackups(after);
            }
        }
    }
}

#ifndef _WIN32

TEST_F(ArchiveFaults, FullAndProtectedDisks) {
    MakeJob(string(100000, 'x'));
    before = Place();
    ASSERT_EQ(DoBackup(), kAllRight);
    signal(SIGXFSZ, SIG_IGN);
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small = {50000, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const Outcome backedUp = DoBackup();
    const auto reason = [](int code) { return std::generic_category().message(code); };
    EXPECT_NE(said.find("MATERIAL.DAT: " + reason(EFBIG)), said.npos) << said;
    PrepareRestore();
    const Outcome restored = DoRestore("1", true);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(backedUp, kNotDone);
    EXPECT_EQ(restored, kNotDone);
    EXPECT_EQ(All().size(), 1u);
    EXPECT_EQ(drives.Count("c:\\tolvarin\\USER\\PROD"), 1);
    EXPECT_EQ(Place(), old);
    // More than any disk has, where the operator may have such a file; nothing is written.
    drives.Write(kPlace + "\\vast", "");
    std::error_code error;
    fs::resize_file(drives.Path(kPlace + "\\vast"), std::uintmax_t{1} << 43, error);
    EXPECT_EQ(DoBackup(), error ? kAllRight : kNotDone);
    EXPECT_TRUE(error || said.starts_with("There is no room on drive d: ")) << said;
    EXPECT_EQ(drives.Count("d:\\QVBACKUP"), error ? 2 : 1);
    fs::remove(drives.Path(kPlace + "\\vast"));
    // Rights keep the superuser from nothing.
    const bool root = geteuid() == 0;
    if (root) {
        for (const auto& entry : fs::recursive_directory_iterator(drives.Folder())) {
            ASSERT_EQ(chown(entry.path().c_str(), 65534, 65534), 0);
        }
        ASSERT_EQ(seteuid(65534), 0);
    }
    chmod(drives.Path(kPlace + "\\OLD").c_str(), 0);
    Expect(DoBackup(), kNotDone,
           "cannot be read: OLD: " + reason(EACCES) +
               "\nWhat could be read is in <drives>/d/QVBACKUP/<time> my job.part; it is not a "
               "whole backup\n");
    EXPECT_FALSE(All().back().whole);
    chmod(drives.Path(kPlace + "\\OLD").c_str(), 0600);
    // What a folder hides is not missing.
    chmod((All().at(0).path / "COMP").c_str(), 0);
    Expect(DoVerify("1"), kNotDone,
           "<time> my job: cannot be read: COMP: " + reason(EACCES) + "\n");
    chmod(drives.Path("d:\\QVBACKUP").c_str(), 0555);
    Expect(DoBackup(), kNotDone, "...part: " + reason(EACCES));
    EXPECT_EQ(seteuid(root ? 0 : geteuid()), 0);
}

#endif

}  // namespace
}  // namespace archive
