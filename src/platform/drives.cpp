#include "platform/drives.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "platform/errors.h"
#include "platform/native.h"
#include "text/strings.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

// Set while drive letters are entries of a folder instead of the platform's own.
std::optional<fs::path> g_drivesFolder;

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

fs::path DriveRoot(char letter) {
    const char lower = static_cast<char>(letter | 0x20);
    if (g_drivesFolder) return *g_drivesFolder / std::string(1, lower);
    return native::DriveRoot(lower);
}

// Names of devices, which Windows takes for the device in any directory and with any extension.
bool IsDevice(std::string_view name) {
    const std::string base(text::Trim(name.substr(0, name.find('.'))));
    static constexpr std::array kDevices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    for (const char* device : kDevices) {
        if (text::EqualIgnoringCase(base, device)) return true;
    }
    const bool port = base.size() == 4 && (text::EqualIgnoringCase(base.substr(0, 3), "COM") ||
                                           text::EqualIgnoringCase(base.substr(0, 3), "LPT"));
    return port && base[3] >= '1' && base[3] <= '9';
}

}  // namespace

void MapDrives(const fs::path& folder) {
    g_drivesFolder = folder;
}

void MapDrives() {
    g_drivesFolder.reset();
    native::PrepareDrives();
}

std::vector<Drive> Drives() {
    if (!g_drivesFolder) return native::Drives();
    std::vector<Drive> drives;
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        if (DriveReady(letter)) drives.push_back({letter, {}});
    }
    return drives;
}

bool DriveReady(char letter) {
    if (!IsLetter(letter)) return false;
    if (!g_drivesFolder) return native::DriveReady(static_cast<char>(letter | 0x20));
    std::error_code error;
    const native::Directory root(DriveRoot(letter), error);
    if (!error) root.Entries(error, 1);
    return !error;
}

std::string DrivesPlace() {
    if (!g_drivesFolder) return native::DrivesPlace();
    return "the entries a to z of the folder " + g_drivesFolder->string();
}

std::string WindowsDirectory() {
    return g_drivesFolder ? "c:\\windows" : native::WindowsDirectory();
}

fs::path Resolve(std::string_view path, Lookup lookup) {
    const std::string shown(path);
    if (path.size() < 2 || !IsLetter(path[0]) || path[1] != ':') {
        throw FileError(FileErrorKind::kPathNotFound, shown, "the path does not name a drive");
    }
    fs::path native = DriveRoot(path[0]);
    std::error_code error;
    const auto root = native::TypeOf(native, Links::kFollow, error);
    if (error) throw FileError(native::KindOf(error), shown, error.message());
    if (root == native::EntryType::kMissing) {
        throw FileError(FileErrorKind::kPathNotFound, shown, "there is no such drive");
    }
    path.remove_prefix(2);
    while (!path.empty()) {
        const auto end = std::min(path.find('\\'), path.size());
        const auto component = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (component.empty()) continue;  // a doubled backslash
        if (!IsValidName(component)) {
            throw BadName(shown, std::string(component));
        }
        try {
            native = native::FindEntry(native, component, lookup);
        } catch (const FileError& failure) {
            throw FileError(failure.Kind(), shown, failure.Reason());
        }
    }
    return native;
}

std::optional<std::string> SystemName(const fs::path& name) {
    return native::ToSystem(name);
}

bool IsValidName(std::string_view name) {
    constexpr std::string_view kRefused = "/\\:*?\"<>|";
    for (char c : name) {
        if (static_cast<unsigned char>(c) < 32 || kRefused.find(c) != kRefused.npos) return false;
    }
    return !name.empty() && name.back() != '.' && name.back() != ' ' && !IsDevice(name);
}

}  // namespace platform
