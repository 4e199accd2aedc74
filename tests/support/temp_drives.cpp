#include "tests/support/temp_drives.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

#include "app/system_config.h"
#include "materiallist/material_list_table.h"
#include "materialtypes/material_type_table.h"
#include "platform/drives.h"
#include "platform/single_instance.h"
#include "process/process_table.h"
#include "text/code_page.h"
#include "views/application.h"

namespace test {
namespace {

namespace fs = std::filesystem;

fs::path NewFolder() {
    std::random_device random;
    for (;;) {
        const fs::path folder =
            fs::temp_directory_path() / ("quarvel-test-" + std::to_string(random()));
        if (fs::create_directory(folder)) return folder;
    }
}

}  // namespace

void FreshSystem() {
    app::TheConfig() = {};
    process::Shared() = {};
    materialtypes::Shared() = {};
    materiallist::Shared() = {};
    views::ResetApplication();
}

TempDrives::TempDrives() : folder_(NewFolder()) {
    fs::create_directory(folder_ / "c");
    fs::create_directory(folder_ / "d");
    FreshSystem();
    platform::MapDrives(folder_);
    platform::SingleInstance::Suffix() = folder_.filename().string();
}

TempDrives::~TempDrives() {
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(
             folder_, fs::directory_options::skip_permission_denied, ignored)) {
        if (!entry.is_symlink(ignored)) {
            fs::permissions(entry.path(), fs::perms::owner_all, fs::perm_options::add, ignored);
        }
    }
    fs::remove_all(folder_, ignored);
}

fs::path TempDrives::Path(std::string_view path) const {
    fs::path result = folder_ / std::string(path.substr(0, 1));
    path.remove_prefix(2);
    while (!path.empty()) {
        path.remove_prefix(1);  // the backslash
        const auto end = std::min(path.find('\\'), path.size());
        const std::string utf8 = text::ToUtf8(path.substr(0, end));
        result /= fs::path(std::u8string(utf8.begin(), utf8.end()));
        path.remove_prefix(end);
    }
    return result;
}

void TempDrives::Write(std::string_view path, std::string_view bytes) const {
    const fs::path native = Path(path);
    fs::create_directories(native.parent_path());
    std::ofstream(native, std::ios::binary).write(bytes.data(), std::ssize(bytes));
}

void TempDrives::MakeDir(std::string_view path) const {
    fs::create_directories(Path(path));
}

std::string TempDrives::Read(std::string_view path) const {
    std::ifstream file(Path(path), std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

bool TempDrives::Exists(std::string_view path) const {
    std::error_code ignored;
    return fs::symlink_status(Path(path), ignored).type() != fs::file_type::not_found;
}

int TempDrives::Count(std::string_view path) const {
    return static_cast<int>(std::distance(fs::directory_iterator(Path(path)), {}));
}

void TempDrives::SetReadOnly(std::string_view path, bool readOnly) const {
    constexpr auto kWrite =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(Path(path), kWrite,
                    readOnly ? fs::perm_options::remove : fs::perm_options::add);
}

}  // namespace test
