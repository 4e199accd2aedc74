// The file layer on Linux: drives are entries of a folder, names are UTF-8 and case counts.
#include "platform/native.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "text/code_page.h"
#include "text/strings.h"

namespace platform::native {
namespace {

// One of the user's folders: what the variable says, else its place in his home folder.
fs::path UserFolder(const char* variable, const char* inHome) {
    const char* folder = std::getenv(variable);
    // A relative value is to be ignored, as the XDG Base Directory rules say.
    if (folder != nullptr && folder[0] == '/') return folder;
    const char* home = std::getenv("HOME");
    return fs::path(home != nullptr ? home : "/") / inHome;
}

fs::path DrivesFolder() {
    return UserFolder("XDG_DATA_HOME", ".local/share") / "quarvel/drives";
}

}  // namespace

fs::path CacheFolder(std::error_code&) {
    return UserFolder("XDG_CACHE_HOME", ".cache") / "quarvel-sysman";
}

std::error_code LastError() {
    return {errno, std::generic_category()};
}

FileErrorKind KindOfPlatform(const std::error_code& error) {
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

std::unique_ptr<DriveSource> OwnDrives() {
    const fs::path folder = DrivesFolder();
    auto drives = DrivesIn(folder);
    bool any = false;
    for (char letter = 'a'; letter <= 'z'; ++letter) any = any || drives->Label(letter);
    // Every workshop PC has a c:, so a first start here gets one too.
    std::error_code ignored;
    if (!any) fs::create_directories(folder / "c", ignored);
    return drives;
}

std::string Reason(const std::error_code& error) {
    // In the language of the session, which speaks UTF-8; where the set lacks its letters, in
    // English.
    const auto said = text::FromUtf8(error.message());
    const char* const english = strerrordesc_np(error.value());
    return said ? *said : english != nullptr ? english : "the disk refuses";
}

fs::path FromSystem(std::string_view name) {
    return fs::path(text::ToUtf8(name));
}

std::optional<std::string> ToSystem(const fs::path& name) {
    return text::FromUtf8(name.native());
}

fs::path FindEntry(const fs::path& folder, std::string_view name, Lookup lookup) {
    fs::path exact = folder / FromSystem(name);
    const auto check = [&](const std::error_code& error) {
        if (error) throw FileError(KindOf(error), std::string(name), Reason(error));
    };
    std::error_code error;
    if (lookup == Lookup::kAny) {
        const auto type = TypeOf(exact, Links::kStay, error);
        check(error);
        if (type != EntryType::kMissing) return exact;
    }
    const Directory directory(folder, error);
    if (error && IsMissing(error)) return exact;
    check(error);
    std::vector<fs::path> matches;
    for (Entry& entry : directory.Entries(error)) {
        const auto candidate = ToSystem(entry.name);
        if (candidate && text::EqualIgnoringCase(*candidate, name)) matches.push_back(entry.name);
    }
    check(error);
    if (matches.size() > 1) {
        throw FileError(FileErrorKind::kPathFileAccess, std::string(name),
                        "more than one name matches \"" + std::string(name) + "\"");
    }
    return matches.empty() ? exact : folder / matches.front();
}

}  // namespace platform::native
