// The file layer on Linux: drives are entries of a folder, names are UTF-8 and case counts.
#include "platform/native.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "text/code_page.h"
#include "text/strings.h"

namespace platform::native {
namespace {

fs::path DrivesFolder() {
    const char* data = std::getenv("XDG_DATA_HOME");
    // A relative value is to be ignored, as the XDG Base Directory rules say.
    if (data != nullptr && data[0] == '/') return fs::path(data) / "quarvel" / "drives";
    const char* home = std::getenv("HOME");
    return fs::path(home != nullptr ? home : "/") / ".local/share/quarvel/drives";
}

}  // namespace

std::error_code LastError() {
    return {errno, std::generic_category()};
}

FileErrorKind KindOf(const std::error_code& error) {
    switch (error.value()) {
        case ENOENT:
            return FileErrorKind::kFileNotFound;
        case ENOTDIR:
            return FileErrorKind::kPathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case EEXIST:
        case ENOTEMPTY:
        case EISDIR:
        case ELOOP:
        case EBUSY:
        case EINVAL:
        case ENAMETOOLONG:
            return FileErrorKind::kPathFileAccess;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return FileErrorKind::kDiskFull;
        case ENODEV:
        case ENXIO:
        case EIO:
        case ESTALE:
        case ENOTCONN:
        case ENOMEDIUM:
            return FileErrorKind::kDeviceUnavailable;
        default:
            return FileErrorKind::kOther;
    }
}

void PrepareDrives() {
    if (!Drives().empty()) return;
    // Every workshop PC has a c:, so a first start here gets one too.
    std::error_code ignored;
    fs::create_directories(DrivesFolder() / "c", ignored);
}

std::vector<Drive> Drives() {
    std::vector<Drive> drives;
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        if (DriveReady(letter)) drives.push_back({letter, {}});
    }
    return drives;
}

fs::path DriveRoot(char letter) {
    return DrivesFolder() / std::string(1, letter);
}

std::string WindowsDirectory() {
    return "c:\\windows";
}

fs::path FromSystem(std::string_view name) {
    return fs::path(text::ToUtf8(name));
}

std::optional<std::string> ToSystem(const fs::path& name) {
    return text::FromUtf8(name.native());
}

fs::path FindEntry(const fs::path& folder, std::string_view name, Lookup lookup) {
    const fs::path exact = folder / FromSystem(name);
    struct stat info;
    if (lookup == Lookup::kAny && lstat(exact.c_str(), &info) == 0) return exact;

    DIR* stream = opendir(folder.c_str());
    if (stream == nullptr) return exact;
    fs::path match;
    int matches = 0;
    while (const dirent* entry = readdir(stream)) {
        const auto candidate = text::FromUtf8(entry->d_name);
        if (candidate && text::EqualIgnoringCase(*candidate, name)) {
            match = folder / entry->d_name;
            ++matches;
        }
    }
    closedir(stream);
    if (matches > 1) {
        throw FileError(FileErrorKind::kPathFileAccess, std::string(name),
                        "more than one name matches \"" + std::string(name) + "\"");
    }
    return matches == 1 ? match : exact;
}

bool IsLink(const fs::path& path) {
    struct stat info;
    return lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

bool IsHidden(const fs::path& path) {
    return path.filename().native().starts_with('.');
}

bool IsReadOnly(const fs::path& path) {
    struct stat info;
    // Of a link the link itself would go, and a link has no permissions of its own.
    if (lstat(path.c_str(), &info) != 0 || S_ISLNK(info.st_mode)) return false;
    // The mode is looked at as well because the superuser is let through by access().
    return (info.st_mode & S_IWUSR) == 0 || access(path.c_str(), W_OK) != 0;
}

void RemoveFile(const fs::path& path, std::error_code& error) {
    if (unlink(path.c_str()) != 0) error = LastError();
}

std::tm LastChange(const fs::path& path, std::error_code& error) {
    struct stat info = {};
    std::tm time = {};
    if (stat(path.c_str(), &info) != 0 || localtime_r(&info.st_mtime, &time) == nullptr) {
        error = LastError();
    }
    return time;
}

bool StartBatchFile(const fs::path&, std::error_code&) {
    return false;
}

}  // namespace platform::native
