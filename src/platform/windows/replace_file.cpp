// Reading a file and replacing it whole, on Windows.
#include <windows.h>

#include <algorithm>
#include <vector>

#include "platform/native.h"

namespace platform::native {
namespace {

class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() { Close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE Get() const { return handle_; }
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    bool Close() {
        const HANDLE closing = handle_;
        handle_ = INVALID_HANDLE_VALUE;
        return closing == INVALID_HANDLE_VALUE || CloseHandle(closing);
    }

  private:
    HANDLE handle_;
};

constexpr std::size_t kChunk = 1 << 20;

bool WriteAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        const DWORD part = static_cast<DWORD>(std::min(bytes.size(), kChunk));
        DWORD written = 0;
        if (!WriteFile(file, bytes.data(), part, &written, nullptr)) return false;
        if (written == 0) {
            SetLastError(ERROR_DISK_FULL);
            return false;
        }
        bytes.remove_prefix(written);
    }
    return true;
}

// Gives the new file the access rights of the one that it replaces. A file system without rights
// (a memory stick) has none to give, so a failure here is none of the save.
void CopyPermissions(const fs::path& target, const fs::path& temporary) {
    DWORD size = 0;
    GetFileSecurityW(target.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    if (size == 0) return;
    std::vector<unsigned char> rights(size);
    if (GetFileSecurityW(target.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size)) {
        SetFileSecurityW(temporary.c_str(), DACL_SECURITY_INFORMATION, rights.data());
    }
}

}  // namespace

std::string ReadFile(const fs::path& path, std::error_code& error) {
    Handle file(CreateFileW(path.c_str(), GENERIC_READ,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) {
        error = LastError();
        return {};
    }
    std::string bytes;
    DWORD got = 0;
    do {
        const std::size_t filled = bytes.size();
        bytes.resize(filled + kChunk);
        if (!::ReadFile(file.Get(), bytes.data() + filled, kChunk, &got, nullptr)) {
            error = LastError();
            got = 0;
        }
        bytes.resize(filled + got);
    } while (got > 0);
    return bytes;
}

void ReplaceWholeFile(const fs::path& target, std::string_view bytes, std::error_code& error) {
    fs::path temporary;
    HANDLE raw = INVALID_HANDLE_VALUE;
    for (int attempt = 0; attempt < 100 && raw == INVALID_HANDLE_VALUE; ++attempt) {
        temporary = target.parent_path() / (L"~quarvel-" + std::to_wstring(GetCurrentProcessId()) +
                                            L"-" + std::to_wstring(attempt) + L".tmp");
        raw = CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                          FILE_ATTRIBUTE_NORMAL, nullptr);
        if (raw == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS) break;
    }
    Handle file(raw);
    if (!file.IsOpen()) {
        error = LastError();
        return;
    }
    LARGE_INTEGER size = {};
    bool complete = WriteAll(file.Get(), bytes) && FlushFileBuffers(file.Get()) &&
                    GetFileSizeEx(file.Get(), &size) &&
                    size.QuadPart == static_cast<LONGLONG>(bytes.size()) && file.Close();
    if (complete) {
        CopyPermissions(target, temporary);
        complete = MoveFileExW(temporary.c_str(), target.c_str(),
                               MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    }
    if (!complete) {
        error = LastError();
        file.Close();
        DeleteFileW(temporary.c_str());
    }
}

}  // namespace platform::native
