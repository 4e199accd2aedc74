// Every system call of every save, of start-up, create and delete goes wrong once. Afterwards each
// file is the old or the new one, whole, under its one name, with its rights; nothing else is
// there; and what the operator was told is what happened.
//
// A run takes a sample, chosen by the seed in FAULTS (a number); FAULTS=all takes every case and
// prints how many there were of what.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <random>
#include <set>

#include "app/sys_man.h"
#include "app/system_config.h"
#include "directories/create_dir.h"
#include "errors/errors.h"
#include "materiallist/material_list_table.h"
#include "materiallist/nest_options.h"
#include "materialtypes/material_type_table.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "tests/support/one_fault.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/temp_drives.h"
#include "text/strings.h"
#include "views/application.h"

#ifndef _WIN32
#include <grp.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#endif

namespace {

namespace fs = std::filesystem;
using test::Fault;
// What is in the folder: the paths, with rights and bytes.
using Tree = std::map<std::string, std::string>;

const std::string kSystem = "c:\\tolvarin\\SYSTEM\\";
const std::string kUser = "c:\\tolvarin\\NETWORK\\USER1\\NESTUSER.INI";
const std::string kProduction = "c:\\tolvarin\\USER\\PROD\\";

// A call that was only interrupted is made again.
#ifdef _WIN32
constexpr int kInterrupted = -1;  // none is
#else
constexpr int kInterrupted = EINTR;
#endif

constexpr std::size_t kSample = 30;  // cases of each work

struct Work {
    const char* name;
    bool saves;  // says whether it has saved: all or nothing
    std::function<std::string()> run;
};

class FaultsTest : public ::testing::Test {
  protected:
    FaultsTest() {
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
        app::TheConfig().UserNumber = "1";
        process::TheProcesses().ProcessCount = 3;
        for (int n = 1; n <= 3; ++n) process::TheProcesses().Process(n).ThicknessCount = 100;
        materialtypes::TheMaterialTypes().Count = 60;
        materiallist::TheMaterialList().EntryCount = 199;
    }
    ~FaultsTest() override {
        screen.answers.clear();
        views::ResetApplication();
    }

    void MakeTree() {
        for (const auto& drive : fs::directory_iterator(drives.Folder())) fs::remove_all(drive);
        for (const char* name : {"PROCESS.DAT", "mattypes.dat", "MATERIAL.DAT"}) {
            drives.Write(kSystem + name, "old");
            Guard(drives.Path(kSystem + name));
        }
        drives.Write(kUser, "[SystemManager]\r\nCurrentSysManDrive=x:\r\n; kept\r\n[Own]\r\nk=1");
        Guard(drives.Path(kUser));
        for (const char* name : {"JOB\\COMP\\a", "JOB\\COMP\\b", "JOB\\TAPE\\c",
                                 "JOB\\MATERIAL.DAT", "SIBLING\\COMP\\a"}) {
            drives.Write(kProduction + name, "old");
        }
        drives.MakeDir("c:\\tolvarin\\USER\\DESIGN\\PLATES");
    }
    // Rights that a save has to keep: another group and an access list, where there can be any.
    static void Guard([[maybe_unused]] const fs::path& file) {
#ifndef _WIN32
        gid_t groups[32];
        const int count = getgroups(32, groups);
        if (count < 1 || chown(file.c_str(), static_cast<uid_t>(-1), groups[count - 1]) != 0)
            return;
        chmod(file.c_str(), 0664);
        // Version 2; owner rw, user 1001 rw, group none, mask rw, others r.
        static constexpr std::string_view kList(
            "\2\0\0\0"
            "\1\0\6\0\xFF\xFF\xFF\xFF"
            "\2\0\6\0\xE9\3\0\0"
            "\4\0\0\0\xFF\xFF\xFF\xFF"
            "\20\0\6\0\xFF\xFF\xFF\xFF"
            "\40\0\4\0\xFF\xFF\xFF\xFF",
            44);
        setxattr(file.c_str(), "system.posix_acl_access", kList.data(), kList.size(), 0);
#endif
    }

    Tree Look() const {
        Tree tree;
        for (const auto& entry : fs::recursive_directory_iterator(drives.Folder())) {
            std::string state;
#ifndef _WIN32
            struct stat info;
            char list[200];
            const std::string path = entry.path().native();
            lstat(path.c_str(), &info);
            state = std::to_string(info.st_mode) + " " + std::to_string(info.st_gid) + " ";
            const auto size = getxattr(path.c_str(), "system.posix_acl_access", list, sizeof list);
            if (size > 0) state.append(list, static_cast<std::size_t>(size));
#endif
            state += "|";
            const auto name = entry.path().lexically_relative(drives.Folder());
            if (entry.is_regular_file()) {
                std::ifstream file(entry.path(), std::ios::binary);
                state.append(std::istreambuf_iterator<char>(file), {});
            }
            tree[name.generic_string()] = state;
        }
        return tree;
    }

    // The main window, with a person who does this in it; the boxes that were shown, and when none
    // was, whether the list is what is there.
    std::string Run(const std::function<void(app::SysMan&)>& steps) {
        views::ResetApplication();
        screen.log.clear();
        screen.windows.clear();
        screen.answers.assign(9, views::Answer::kYes);
        std::string listed, there;
        app::SysMan window;
        screen.windows.push_back([&](views::Form&) {
            steps(window);
            for (const auto& item : window.lstDirectory.Items()) listed += item + " ";
            const bool design = window.optDesign.Value();
            std::set<std::string> names;
            const auto folder = drives.Path("c:\\tolvarin\\USER\\") / (design ? "DESIGN" : "PROD");
            for (const auto& entry : fs::directory_iterator(folder)) {
                names.insert(text::LowerCase(entry.path().filename().string()));
            }
            for (const auto& name : names) there += name + " ";
        });
        views::Guard([&] { views::ShowModal(window); });
        std::string said;
        for (const auto& box : screen.log) {
            if (box.find(" sure you want to delete") == box.npos) said += box + "\n";
        }
        if (said.empty() && listed != there) return "WRONG LIST " + listed + "for " + there;
        return said;
    }

    // What is wrong after a fault, nothing if all is well.
    std::string Finding(const Work& work, const Fault& fault, const test::Outcome& outcome,
                        const Tree& before, const Tree& done) const {
        const Tree now = Look();
        if (outcome.crashed) return "crashed";
        if (outcome.said.find("WRONG LIST") != std::string::npos) return outcome.said;
        const bool killed = fault.how == Fault::kKilled;
        for (const auto& [path, state] : now) {
            const auto old = before.find(path), made = done.find(path);
            const bool known = (old != before.end() && old->second == state) ||
                               (made != done.end() && made->second == state);
            if (!known && !(killed && path.ends_with(".tmp"))) {
                return (old == before.end() && made == done.end() ? "left behind: " : "changed: ") +
                       path;
            }
        }
        for (const auto& [path, state] : before) {
            if (done.contains(path) && !now.contains(path)) return "gone: " + path;
        }
        if (killed || !work.saves) return {};
        if (outcome.said.empty() && now != done) return "reported as saved, but is not";
        if (!outcome.said.empty() && fault.error == kInterrupted) return "not tried again";
        if (!outcome.said.empty() && now != before) return "saved, but reported: " + outcome.said;
        return {};
    }

    static std::string Chosen() {
        const char* const chosen = std::getenv("FAULTS");
        return chosen != nullptr ? chosen : "1";
    }

    static std::string Saved(const std::function<void()>& save) {
        try {
            save();
            return {};
        } catch (const errors::FileError& failure) {
            return failure.what();
        }
    }

    test::TempDrives drives;
    test::ScriptedScreen screen;
    const std::vector<Work> works = {
        {"processes", true, [] { return Saved(process::WriteProcessFile); }},
        {"material types", true, [] { return Saved(materialtypes::WriteMaterialTypes); }},
        {"material list", true,
         [] {
             return Saved([] { materiallist::WriteMaterialList(materiallist::kSystemDefaults); });
         }},
        {"options", false,
         [] { return Saved([] { materiallist::WriteNestOptions(app::TheConfig().UserDir()); }); }},
        {"start and end", false, [this] { return Run([](app::SysMan&) {}); }},
        {"create", false,
         [this] {
             return Run([this](app::SysMan& window) {
                 window.optProduction.Pick();
                 screen.windows.push_back([](views::Form& form) {
                     auto& dialog = static_cast<directories::CreateDir&>(form);
                     dialog.txtDirName.SetText("NEW");
                     views::Guard([&] { dialog.cmdOK.Press(); });
                 });
                 window.cmdCreate.Press();
             });
         }},
        {"delete", false,
         [this] {
             return Run([](app::SysMan& window) {
                 window.optProduction.Pick();
                 window.lstDirectory.Choose(0);
                 window.cmdDelete.Press();
             });
         }},
    };
};

TEST_F(FaultsTest, LeaveTheOldOrTheNewAndTellTheTruth) {
    if (!test::CanFail()) GTEST_SKIP() << "no call can be made to fail here";
    const bool all = Chosen() == "all";
    const auto seed = static_cast<unsigned>(std::atoi(Chosen().c_str()));
    std::mt19937 random(seed);
    std::map<std::string, int> findings;
    for (const Work& work : works) {
        MakeTree();
        const Tree before = Look();
        const test::Outcome whole = test::RunWith({Fault::kDone}, 0, work.run);
        ASSERT_FALSE(whole.crashed) << work.name;
        ASSERT_EQ(whole.said, "") << work.name;
        const Tree done = Look();
        ASSERT_NE(before, done) << work.name;
        for (const auto& [path, state] : before) {
            if (!done.contains(path)) continue;
            EXPECT_EQ(done.at(path).substr(0, done.at(path).find('|')),
                      state.substr(0, state.find('|')))
                << path << " has other rights";
        }
        int cases = 0, wrong = 0;
        const auto& faults = test::Faults();
        const std::size_t pairs = static_cast<std::size_t>(whole.calls) * faults.size();
        for (std::size_t i = 0; i < (all ? pairs : kSample); ++i) {
            const std::size_t pair = all ? i : random() % pairs;
            const Fault& fault = faults[pair % faults.size()];
            MakeTree();
            const auto outcome =
                test::RunWith(fault, static_cast<int>(pair / faults.size()) + 1, work.run);
            if (!outcome.happened) continue;
            ++cases;
            const std::string finding = Finding(work, fault, outcome, before, done);
            if (finding.empty()) continue;
            ++wrong;
            ++findings[std::string(work.name) + ", " + outcome.call + ", " + fault.Name() + ": " +
                       finding];
        }
        std::cout << work.name << ": " << whole.calls << " calls, " << cases << " cases, " << wrong
                  << " findings\n";
    }
    for (const auto& [finding, times] : findings) {
        ADD_FAILURE() << times << " times: " << finding << " (seed " << seed << ")";
    }
}

#ifdef __linux__

// Between any two steps of a deletion its folder is swapped for a link to somebody's data.
TEST_F(FaultsTest, NoDeletionIsLedOutside) {
    if (!test::CanFail()) GTEST_SKIP() << "no program can be overtaken here";
    const Work& work = works.back();
    const fs::path job = drives.Folder() / "c/tolvarin/USER/PROD/JOB",
                   outside = drives.Folder() / "o";
    const bool all = Chosen() == "all";
    std::mt19937 random(static_cast<unsigned>(std::atoi(Chosen().c_str())));
    MakeTree();
    const int calls = test::RunWith({Fault::kDone}, 0, work.run).calls;
    for (int i = 0; i < (all ? calls : 15); ++i) {
        for (const fs::path& swapped : {job, job / "COMP"}) {
            MakeTree();
            drives.Write("o:\\a", "precious");
            drives.Write("o:\\COMP\\a", "precious");
            const int n =
                all ? i + 1 : static_cast<int>(random() % static_cast<unsigned>(calls)) + 1;
            test::RunWith({Fault::kOvertaken}, n, work.run, [&] {
                std::error_code gone;
                fs::rename(swapped, drives.Folder() / "away", gone);
                fs::create_directory_symlink(outside, swapped, gone);
            });
            EXPECT_EQ(drives.Read("o:\\a") + drives.Read("o:\\COMP\\a"), "preciousprecious") << n;
        }
    }
}

#endif

}  // namespace
