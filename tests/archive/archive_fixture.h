// Data directories to back up and to bring back, on drives of their own, and what is told of it.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <regex>
#include <source_location>
#include <sstream>

#include "app/system_config.h"
#include "archive/stored.h"
#include "tests/support/temp_drives.h"

namespace archive {

using std::string;
using enum Outcome;
using Tree = std::map<string, string>;

inline const string kPlace = "c:\\tolvarin\\USER\\PROD\\my job";

class Archive : public ::testing::Test {
  protected:
    Archive() {
        app::TheConfig().NestRootDir = "\\tolvarin";
        drives.MakeDir("c:\\tolvarin\\USER\\PROD");
        telling.say = [this](const string& line) { said += line + "\n"; };
        telling.progress = [this](int percent, const string& name) {
            EXPECT_TRUE(percent >= 0 && percent <= 100) << percent;
            percent_ = percent;
            if (meanwhile) meanwhile(percent, name);
        };
    }

    // What is below a folder, with bytes, times and rights.
    static Tree TreeIn(const fs::path& top) {
        Tree tree;
        for (const auto& entry : fs::recursive_directory_iterator(top)) {
            const auto time = entry.last_write_time().time_since_epoch().count();
            // The library takes nothing off a path in the form without a limit.
            const auto below = entry.path().native().substr(top.native().size() + 1);
            const auto name = fs::path(below).generic_u8string();
            string& state = tree[string(name.begin(), name.end())];
            state = std::to_string(static_cast<int>(entry.status().permissions())) + " " +
                    std::to_string(time) + " ";
            if (!entry.is_regular_file()) continue;
            std::ifstream file(entry.path(), std::ios::binary);
            state += "|" + string(std::istreambuf_iterator<char>(file), {});
        }
        return tree;
    }
    Tree Place() const { return TreeIn(drives.Path(kPlace)); }
    std::vector<Stored> All() const { return StoredIn(BackupsFolder('d')); }
    // What a command ends with, and what it has said.
    Outcome Ends(const std::function<Outcome()>& work) {
        said.clear(), percent_ = -1;
        try {
            const Outcome outcome = work();
            EXPECT_TRUE(percent_ == -1 || percent_ == 100 || outcome != Outcome::kAllRight)
                << percent_;
            return outcome;
        } catch (const errors::Error& failure) {
            said += Said(failure);
            return Outcome::kNotDone;
        }
    }
    // What was told, without the folder and the time of this run.
    string Told() const {
        string told = std::regex_replace(said, std::regex(R"(\\)"), "/");
        told = std::regex_replace(told, std::regex(drives.Folder().generic_string()), "<drives>");
        return std::regex_replace(told, std::regex("[0-9]{4}(-[0-9]{2}){2} [0-9.]{8}"), "<time>");
    }
    // How a command has ended and what was told of it; ".." stands for more at that end.
    void Expect(Outcome got, Outcome expected, string told = "....",
                std::source_location here = std::source_location::current()) {
        const bool begins = told.starts_with(".."), ends = told.ends_with("..");
        const string all = Told(),
                     part = told.substr(begins * 2, told.size() - begins * 2 - ends * 2);
        const bool found = (begins || all.starts_with(part)) && (ends || all.ends_with(part));
        EXPECT_TRUE(got == expected && found && all.find(part) != all.npos)
            << "line " << here.line() << ", " << static_cast<int>(got) << ": " << all;
    }
    Outcome DoBackup(const string& words = kPlace + "\\*.* d: /s") {
        std::istringstream stream(words);
        std::vector<string> list{std::istream_iterator<string>(stream), {}};
        return Ends([&] { return Backup(JobOf(list), telling); });
    }
    Outcome DoRestore(const string& which, bool replace) {
        return Ends([&] { return Restore('d', which, replace, telling); });
    }
    Outcome DoVerify(const string& which = {}) {
        return Ends([&] { return Verify('d', which, telling); });
    }
    // A few files and folders with times of their own.
    void MakeJob(const string& bytes) {
        fs::remove_all(drives.Path(kPlace));
        drives.Write(kPlace + "\\MATERIAL.DAT", bytes);
        drives.Write(kPlace + "\\COMP\\a", "a");
        drives.MakeDir(kPlace + "\\TAPE");
        SetTimes();
    }
    void SetTimes() {
        std::int64_t seconds = 1'000'000'000;
        std::error_code error;
        for (const auto& entry : fs::recursive_directory_iterator(drives.Path(kPlace))) {
            raw::SetTime(entry.path(), {seconds += 1001, 100}, error);
        }
        ASSERT_FALSE(error) << error.message();
    }

    test::TempDrives drives;
    Telling telling;
    string said;
    int percent_ = -1;  // done
    std::function<void(int percent, const string& name)> meanwhile;
};

}  // namespace archive
