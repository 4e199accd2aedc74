// Reading a file and replacing it whole, on Windows.
#include <windows.h>

#include <algorithm>

#include "platform/native.h"
#include "platform/windows/handle.h"

namespace platform::native {
namespace {

constexpr std::size_t kChunk = 1 << 20;
constexpr DWORD kNoAttributes = INVALID_FILE_ATTRIBUTES;

[[noreturn]] void Fail(const std::error_code& error) {
    throw std::system_error(error);
}

void Must(bool done) {
    if (!done) Fail(LastError());
}

// Only files are opened: a pipe or a device can be set going by that alone.
Handle OpenFile(const fs::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    Must(attributes != kNoAttributes);
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) Fail(ErrorOf(Refusal::kNotAFile));
    Handle file(CreateFileW(path.c_str(), GENERIC_READ,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    Must(file.IsOpen());
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) Fail(ErrorOf(Refusal::kNotAFile));
    return file;
}

// The file that a save replaces.
struct Target {
    fs::path path;                     // no link
    DWORD attributes = kNoAttributes;  // when there is none
};

Target TargetOf(const fs::path& path) {
    Target target;
    target.path = path;
    std::error_code error;
    const EntryType type = TypeOf(path, Links::kStay, error);
    if (error) Fail(error);
    if (type == EntryType::kMissing) return target;
    if (type == EntryType::kLink) {
        // A link stays a link: the file that it leads to is replaced.
        target.path = fs::canonical(path, error);
        if (error) Fail(ErrorOf(Refusal::kNotAFile));
    }
    target.attributes = GetFileAttributesW(target.path.c_str());
    Must(target.attributes != kNoAttributes);
    if ((target.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) Fail(ErrorOf(Refusal::kNotAFile));
    if ((target.attributes & FILE_ATTRIBUTE_READONLY) != 0) Fail(ErrorOf(Refusal::kReadOnly));
    return target;
}

// The same file by its number on the volume, whatever its name.
struct Identity {
    DWORD volume, high, low;

    bool operator==(const Identity&) const = default;
};

Identity IdentityOf(HANDLE file) {
    BY_HANDLE_FILE_INFORMATION info;
    Must(GetFileInformationByHandle(file, &info));
    return {info.dwVolumeSerialNumber, info.nFileIndexHigh, info.nFileIndexLow};
}

// A new file beside the target, gone again unless it has got its name.
class Temporary {
  public:
    explicit Temporary(const Target& target) : target_(target) {
        // The name is no other program's on any computer that sees the directory, so that what an
        // attempt leaves behind that was made and yet reported as failed can be removed.
        FILETIME now;
        GetSystemTimeAsFileTime(&now);
        const std::wstring own = L"~quarvel-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                                 std::to_wstring(now.dwHighDateTime) +
                                 std::to_wstring(now.dwLowDateTime) + L"-";
        constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
        const bool exists = target.attributes != kNoAttributes;
        const DWORD attributes = FILE_ATTRIBUTE_ARCHIVE | (exists ? target.attributes & kKept : 0);
        for (int attempt = 0; attempt < 10 && !file_.IsOpen(); ++attempt) {
            path_ = target.path.parent_path() / (own + std::to_wstring(attempt) + L".tmp");
            file_ = Handle(CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                       attributes, nullptr));
            if (file_.IsOpen() || GetLastError() == ERROR_FILE_EXISTS) continue;
            const std::error_code failure = LastError();
            Remove();
            Fail(failure);
        }
        Must(file_.IsOpen());
    }
    ~Temporary() {
        file_.Close();
        if (!renamed_) Remove();
    }

    void Write(std::string_view bytes) {
        for (auto rest = bytes; !rest.empty();) {
            const DWORD part = static_cast<DWORD>(std::min(rest.size(), kChunk));
            DWORD written = 0;
            Must(WriteFile(file_.Get(), rest.data(), part, &written, nullptr));
            if (written == 0) Fail({ERROR_DISK_FULL, std::system_category()});
            rest.remove_prefix(written);
        }
        Must(FlushFileBuffers(file_.Get()));
        LARGE_INTEGER size = {};
        Must(GetFileSizeEx(file_.Get(), &size));
        if (size.QuadPart != static_cast<LONGLONG>(bytes.size())) {
            Fail(ErrorOf(Refusal::kNotAsWritten));
        }
    }

    // The access list, where the file system has any; the owner, and the group, which decides
    // nothing here, where it is allowed.
    void TakeRights() {
        DWORD flags = 0;
        Must(GetVolumeInformationByHandleW(file_.Get(), nullptr, 0, nullptr, nullptr, &flags,
                                           nullptr, 0));
        if (target_.attributes == kNoAttributes || (flags & FILE_PERSISTENT_ACLS) == 0) return;
        std::string rights = Security(DACL_SECURITY_INFORMATION);
        Must(SetFileSecurityW(path_.c_str(), DACL_SECURITY_INFORMATION, rights.data()));
        constexpr DWORD kOwners = OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION;
        rights = Security(kOwners);
        SetFileSecurityW(path_.c_str(), kOwners, rights.data());
    }

    void Rename() {
        const Identity written = IdentityOf(file_.Get());
        Must(file_.Close());
        if (!MoveFileExW(path_.c_str(), target_.path.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
            // A share may have done what it reports as failed.
            const std::error_code failure = LastError();
            if (GetFileAttributesW(path_.c_str()) != kNoAttributes ||
                IdentityOf(OpenFile(target_.path).Get()) != written) {
                Fail(failure);
            }
        }
        renamed_ = true;
    }

  private:
    std::string Security(DWORD what) const {
        DWORD size = 0;
        const auto path = target_.path.c_str();
        GetFileSecurityW(path, what, nullptr, 0, &size);
        std::string rights(size, '\0');
        Must(size != 0 && GetFileSecurityW(path, what, rights.data(), size, &size));
        return rights;
    }
    void Remove() {
        for (int attempt = 0; attempt < 3; ++attempt) {
            if (DeleteFileW(path_.c_str()) || GetLastError() == ERROR_FILE_NOT_FOUND) return;
        }
    }

    const Target& target_;
    fs::path path_;
    Handle file_;
    bool renamed_ = false;
};

// The bytes of the file; nothing when it turned out shorter than it said.
std::optional<std::string> ReadOnce(const fs::path& path) {
    const Handle file = OpenFile(path);
    LARGE_INTEGER size = {};
    Must(GetFileSizeEx(file.Get(), &size));
    std::string bytes;
    for (DWORD got = 1; got > 0;) {
        const std::size_t filled = bytes.size();
        bytes.resize(filled + kChunk);
        Must(::ReadFile(file.Get(), bytes.data() + filled, kChunk, &got, nullptr));
        bytes.resize(filled + got);
    }
    if (static_cast<LONGLONG>(bytes.size()) < size.QuadPart) return std::nullopt;
    return bytes;
}

}  // namespace

std::string ReadFile(const fs::path& path, std::error_code& error) {
    try {
        // Half a file is none: a profile that is written back from it would lose the rest.
        for (int attempt = 0; attempt < 3; ++attempt) {
            if (auto bytes = ReadOnce(path)) return std::move(*bytes);
        }
        error = ErrorOf(Refusal::kChanging);
    } catch (const std::system_error& failure) {
        error = failure.code();
    }
    return {};
}

void ReplaceWholeFile(const fs::path& path, std::string_view bytes, std::error_code& error) {
    try {
        const Target target = TargetOf(path);
        Temporary temporary(target);
        temporary.Write(bytes);
        temporary.TakeRights();
        temporary.Rename();
    } catch (const std::system_error& failure) {
        error = failure.code();
    }
}

}  // namespace platform::native
