// Directories on Windows. One that is worked in by steps is held open without the right for others
// to rename or delete it, so that its path goes on leading to it.
#include <windows.h>

#include "platform/native.h"
#include "platform/windows/handle.h"

namespace platform::native {
namespace {

EntryType TypeOfAttributes(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EntryType::kDirectory : EntryType::kFile;
}

// INVALID_FILE_ATTRIBUTES with the error, none when nothing is there.
DWORD AttributesOf(const fs::path& path, std::error_code& error) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        error = LastError();
        if (IsMissing(error)) error.clear();
    }
    return attributes;
}

}  // namespace

struct Directory::Handle {
    fs::path path;
    native::Handle held;
};

Directory::Directory(const fs::path& path, std::error_code& error)
    : handle_(std::make_unique<Handle>()) {
    handle_->path = path;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        error = LastError();
    } else if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        error = {ERROR_DIRECTORY, std::system_category()};
    }
}

Directory::Directory(const Directory& parent, const fs::path& name, std::error_code& error)
    : handle_(std::make_unique<Handle>()) {
    handle_->path = parent.handle_->path / name;
    handle_->held = native::Handle(CreateFileW(
        handle_->path.c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    BY_HANDLE_FILE_INFORMATION info;
    if (!handle_->held.IsOpen() || !GetFileInformationByHandle(handle_->held.Get(), &info)) {
        error = LastError();
    } else if ((info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 ||
               (info.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        error = ErrorOf(Refusal::kNotADirectory);
    }
}

Directory::Directory(Directory&&) noexcept = default;
Directory::~Directory() = default;

std::vector<Entry> Directory::Entries(std::error_code& error, std::size_t most) const {
    std::vector<Entry> entries;
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW((handle_->path / L"*").c_str(), &data);
    if (search == INVALID_HANDLE_VALUE) {
        // The root of an empty volume has not even its dots.
        if (GetLastError() != ERROR_FILE_NOT_FOUND) error = LastError();
        return entries;
    }
    BOOL more = TRUE;
    for (; more && entries.size() < most; more = FindNextFileW(search, &data)) {
        const std::wstring_view name = data.cFileName;
        if (name == L"." || name == L"..") continue;
        constexpr DWORD kHidden = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
        entries.push_back({name, TypeOfAttributes(data.dwFileAttributes),
                           (data.dwFileAttributes & kHidden) != 0});
    }
    if (!more && GetLastError() != ERROR_NO_MORE_FILES) error = LastError();
    FindClose(search);
    return entries;
}

EntryType Directory::TypeOf(const fs::path& name, std::error_code& error) const {
    return native::TypeOf(handle_->path / name, Links::kFollow, error);
}

FileDetails Directory::Details(const fs::path& name, std::error_code& error) const {
    WIN32_FILE_ATTRIBUTE_DATA data;
    FILETIME local;
    SYSTEMTIME fields;
    FileDetails details;
    // The system's own conversion with today's offset, as its directory listings show it.
    if (!GetFileAttributesExW((handle_->path / name).c_str(), GetFileExInfoStandard, &data) ||
        !FileTimeToLocalFileTime(&data.ftLastWriteTime, &local) ||
        !FileTimeToSystemTime(&local, &fields)) {
        error = LastError();
        return details;
    }
    if (TypeOfAttributes(data.dwFileAttributes) != EntryType::kFile) {
        error = ErrorOf(Refusal::kNotAFile);
    }
    details.size = static_cast<std::uintmax_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
    details.changed.tm_year = fields.wYear - 1900;
    details.changed.tm_mon = fields.wMonth - 1;
    details.changed.tm_mday = fields.wDay;
    details.changed.tm_hour = fields.wHour;
    details.changed.tm_min = fields.wMinute;
    details.changed.tm_sec = fields.wSecond;
    return details;
}

void Directory::RemoveFile(const fs::path& name, std::error_code& error) const {
    // The platform itself leaves what is read-only.
    if (!DeleteFileW((handle_->path / name).c_str())) error = LastError();
}

void Directory::RemoveFolder(const fs::path& name, std::error_code& error) const {
    const fs::path path = handle_->path / name;
    const DWORD attributes = AttributesOf(path, error);
    if (error) return;
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        error = ErrorOf(Refusal::kNotADirectory);
    } else if (!RemoveDirectoryW(path.c_str())) {
        error = LastError();
    }
}

EntryType TypeOf(const fs::path& path, Links links, std::error_code& error) {
    const DWORD attributes = AttributesOf(path, error);
    if (attributes == INVALID_FILE_ATTRIBUTES) return EntryType::kMissing;
    const bool link = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    return link && links == Links::kStay ? EntryType::kLink : TypeOfAttributes(attributes);
}

void MakeDirectory(const fs::path& path, std::error_code& error) {
    if (!CreateDirectoryW(path.c_str(), nullptr)) error = LastError();
}

}  // namespace platform::native
