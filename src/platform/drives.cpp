#include "platform/drives.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <utility>

#include "errors/errors.h"
#include "platform/native.h"
#include "text/strings.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using errors::BadName;
using errors::FileError;
using errors::FileErrorKind;

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

class FolderOfDrives : public native::DriveSource {
  public:
    explicit FolderOfDrives(const fs::path& folder) : folder_(folder) {}

    fs::path Root(char letter) const override { return folder_ / std::string(1, letter); }
    std::optional<std::string> Label(char letter) const override {
        // Reading it tells whether it answers, which its mere existence does not.
        std::error_code error;
        const native::Directory root(Root(letter), error);
        if (!error) root.Entries(error, 1);
        return error ? std::nullopt : std::optional<std::string>("");
    }
    std::string Place() const override {
        return "the entries a to z of the folder " + folder_.string();
    }
    std::string WindowsDirectory() const override { return "c:\\windows"; }

  private:
    fs::path folder_;
};

std::unique_ptr<native::DriveSource>& TheSource() {
    static auto source = native::OwnDrives();
    return source;
}

char Lower(char letter) {
    return static_cast<char>(letter | 0x20);
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

std::unique_ptr<native::DriveSource> native::DrivesIn(const fs::path& folder) {
    return std::make_unique<FolderOfDrives>(folder);
}

void MapDrives(const fs::path& folder) {
    TheSource() = native::DrivesIn(folder);
}

std::vector<Drive> Drives() {
    std::vector<Drive> drives;
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        if (const auto label = TheSource()->Label(letter)) drives.push_back({letter, *label});
    }
    return drives;
}

bool DriveReady(char letter) {
    return IsLetter(letter) && TheSource()->Label(Lower(letter)).has_value();
}

std::string DrivesPlace() {
    return TheSource()->Place();
}

std::string WindowsDirectory() {
    return TheSource()->WindowsDirectory();
}

fs::path Resolve(std::string_view path, Lookup lookup) {
    const std::string shown(path);
    if (path.size() < 2 || !IsLetter(path[0]) || path[1] != ':') {
        throw FileError(FileErrorKind::kPathNotFound, shown, "the path does not name a drive");
    }
    fs::path native = TheSource()->Root(Lower(path[0]));
    std::error_code error;
    const auto root = native::TypeOf(native, Links::kFollow, error);
    if (error) throw FileError(native::KindOf(error), shown, native::Reason(error));
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
