// Every system call of every save, of start-up, create and delete goes wrong once. Afterwards each
// file is the old or the new one, whole, under its one name, with its rights; nothing else is
// there; and what the operator was told is what happened.
//
// A run takes a sample, chosen by the seed in FAULTS (a number); FAULTS=all takes every case and
// prints how many there were of what.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iostream>
#include <map>

#include "app/sys_man.h"
#include "app/system_config.h"
#include "directories/create_dir.h"
#include "materiallist/material_list_table.h"
#include "materialtypes/material_type_table.h"
#include "platform/native.h"
#include "process/process_file.h"
#include "tests/support/environment.h"
#include "tests/support/one_fault.h"
#include "tests/support/workshop.h"
#include "views/application.h"

#ifndef _WIN32
#include <sys/stat.h>
#include <sys/xattr.h>
#endif
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using test::Fault;
// What is on the drives, by its path: rights and bytes.
using Tree = std::map<std::string, std::pair<std::string, std::string>>;

#ifdef _WIN32
constexpr const char* kSaved = "flush rename ";
#else
constexpr const char* kSaved = "flush rename flush ";
#endif
constexpr const char* kJob = "c:\\tolvarin\\USER\\PROD\\P10";
constexpr const char* kPart = "c:\\tolvarin\\USER\\PROD\\P10\\COMP";
const directories::DataArea kProduction{"c:", directories::DataKind::kProduction};

// What the operator is told of a failure: nothing, that not everything was done, or also that
// nothing was.
enum Told { kNothing, kFailure, kAllOrNothing };

struct Work {
    const char* name;
    Told told;
    void (*run)();
};

const Work kWorks[] = {
    {"processes", kAllOrNothing, process::WriteProcessFile},
    {"material types", kAllOrNothing, materialtypes::WriteMaterialTypes},
    {"material list", kAllOrNothing,
     [] { materiallist::WriteMaterialList(materiallist::kSystemDefaults); }},
    {"options", kAllOrNothing, [] { materiallist::WriteNestOptions(app::TheConfig().UserDir()); }},
    {"start and end", kNothing,
     [] {
         app::SysMan window;
         views::Guard([&] { window.Open(); });
         if (!views::ApplicationEnded() && window.lstDirectory.Items().size() != 1)
             views::ShowWarning("WRONG LIST", "");
         window.Close();
     }},
    {"create", kFailure,
     [] {
         directories::CreateDir dialog(kProduction, [](const std::string&) {});
         dialog.Open();
         dialog.txtDirName.SetText("NEW");
         dialog.cmdOK.Press();
     }},
    {"delete", kFailure,
     [] {
         directories::DeleteDirectory(kProduction, "p10");
         if (!directories::ListDirectories(kProduction).empty()) views::ShowWarning("listed", "");
     }},
};

// The drives for one case, with tables in memory that are not those of the files. The operator
// answers every question with Yes.
class Place : public test::Workshop, private views::Screen {
  public:
    Place() {
        views::InstallScreen(this);
        app::ReadSystemConfig();
        for (const std::string folder : {kJob, kPart, "d:", "d:\\COMP"}) Write(folder + "\\A", "x");
#ifdef __linux__
        // Rights that a save has to keep: another group, where it may be given, and an access list:
        // version 2; owner rw, user 1001 rw, group none, mask rw, others r.
        constexpr unsigned short kAny = 0xFFFF;
        const unsigned short list[] = {2, 0,    1,    6,  kAny, kAny, 2,    6,  1001, 0,    4,
                                       0, kAny, kAny, 16, 6,    kAny, kAny, 32, 4,    kAny, kAny};
        for (const auto& entry : fs::recursive_directory_iterator(Path("c:\\tolvarin"))) {
            const char* const file = entry.path().c_str();
            [[maybe_unused]] const int given = chown(file, static_cast<uid_t>(-1), 60001);
            if (entry.is_regular_file())
                setxattr(file, "system.posix_acl_access", list, sizeof list, 0);
        }
#endif
    }
    ~Place() override { views::InstallScreen(nullptr); }

    Tree Look() const {
        Tree tree;
        for (const auto& entry : fs::recursive_directory_iterator(Folder())) {
            auto& [rights, bytes] = tree[entry.path().lexically_relative(Folder()).string()];
#ifdef __linux__
            const char* const path = entry.path().c_str();
            struct stat info = {};
            char list[200] = {};
            lstat(path, &info);
            getxattr(path, "system.posix_acl_access", list, sizeof list);
            rights.assign(list, sizeof list) +=
                std::to_string(info.st_mode) + " " + std::to_string(info.st_gid);
#endif
            std::ifstream file(entry.path(), std::ios::binary);
            if (entry.is_regular_file()) bytes.assign(std::istreambuf_iterator<char>(file), {});
        }
        return tree;
    }

    std::string said;

  private:
    int Width() const override { return 0; }
    int Height() const override { return 0; }
    views::Answer Show(const views::Message& message) override {
        said += message.text;
        return views::Answer::kYes;
    }
    void Beep() override {}
    void SetBusy(bool) override {}
    void Realise(views::Form&) override {}
    void Run(views::Form&) override {}
};

TEST(Faults, LeaveTheOldOrTheNewAndTellTheTruth) {
    const test::InMemory memory;
    for (const Work& work : kWorks) {
        Tree before, now;
        std::vector<std::string> calls;
        const auto runWith = [&](const Fault& fault, std::size_t n) {
            Place place;
            if (n == 0) before = place.Look();
            const auto run = [&] { return views::Guard(work.run), place.said; };
            // A folder that may be being deleted is swapped for a link to somebody's data.
            const auto other = [&] {
                const fs::path swapped = place.Path(fault.how == "overtaken" ? kJob : kPart);
                std::error_code gone;
                fs::rename(swapped, place.Path("c:\\away"), gone);
                fs::create_directory_symlink(place.Path("d:"), swapped, gone);
            };
            const std::string said = test::RunWith(fault, n, run, other, calls);
            now = place.Look();
            return said;
        };
        const std::string whole = runWith({}, 0);
        if (calls.empty()) GTEST_SKIP() << "no call can be made to fail here";
        ASSERT_EQ(whole, "") << work.name;
        // What gets the name of a file is on the disk before, and the name itself is after.
        const std::string order = test::OrderOf(calls);
        EXPECT_TRUE(order == kSaved || (order.empty() && work.told == kFailure)) << order;
        const auto flushed = std::ranges::find(calls, "FlushFileBuffers");
        const auto flush = static_cast<std::size_t>(flushed - calls.begin()) + 1;
        const Tree done = now;
        ASSERT_NE(before, done) << work.name;
        const auto cases = test::CasesOf(calls, work.told == kFailure, test::kSample);
        std::cout << work.name << ": " << calls.size() << " calls, " << cases.size() << " cases\n";
        for (const auto& [n, fault] : cases) {
            const std::string said = runWith(fault, n);
            SCOPED_TRACE(std::string(work.name) + ", " + calls.at(n - 1) + " " + fault.how.data() +
                         " with " + std::to_string(fault.error) + ", seed " + test::Seed() + ": " +
                         said);
            const bool swapped = fault.how.starts_with("overtaken"), killed = fault.how == "killed";
            EXPECT_TRUE(said != "CRASHED" && said != "WRONG LIST");
            const std::error_code why(fault.error, std::system_category());
            const bool given = said.find(platform::native::Reason(why)) != said.npos;
            EXPECT_TRUE(given || said.empty() || work.told != kAllOrNothing || fault.error == 0);
            for (const auto& [path, state] : before) {
                const bool kept = now.contains(path) && now.at(path).first == state.first;
                const bool away = swapped && path.starts_with("c/");
                EXPECT_TRUE(kept || away || !done.contains(path)) << path << " or its rights";
            }
            // Who is killed or finds another folder leaves it, and says nothing.
            if (swapped) continue;
            for (const auto& file : now) {
                const bool temporary = killed && file.first.ends_with(".tmp");
                const auto known =
                    std::ranges::count(before, file) + std::ranges::count(done, file);
                EXPECT_TRUE(known > 0 || temporary) << file.first << " is changed or left";
            }
            if (killed || work.told == kNothing) continue;
            // What was only interrupted or done by half goes on.
            const bool again =
                fault.how == "half" || (fault.how == "refused" && fault.error == EINTR);
            const bool unsaved = n == flush && !again;
            EXPECT_TRUE((now == done && !unsaved) || !(said.empty() || again)) << "not done";
            EXPECT_TRUE(now == before || said.empty() || (work.told == kFailure && !again));
        }
    }
}

}  // namespace
