// Files and folders while they are copied, on Windows.
#include "platform/raw.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "platform/windows/handle.h"

namespace platform::raw {
namespace {

using native::Handle;
using native::LastError;

constexpr char kRights = 'a';  // letters of attributes behind it
constexpr std::pair<char, DWORD> kKept[] = {
    {'R', FILE_ATTRIBUTE_READONLY}, {'H', FILE_ATTRIBUTE_HIDDEN}, {'S', FILE_ATTRIBUTE_SYSTEM}};
constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::int64_t kTicks = 10'000'000;              // of a file time in a second
constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;  // from where file times begin

Time TimeOf(const FILETIME& time) {
    const auto ticks = static_cast<std::int64_t>(
        static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime);
    return {ticks / kTicks - kSecondsTo1970, static_cast<std::int32_t>(ticks % kTicks * 100)};
}

// What lies before 1601 or beyond the last file time comes as near as there is one.
FILETIME FileTimeOf(const Time& time) {
    const std::int64_t seconds =
        std::clamp<std::int64_t>(time.seconds, -kSecondsTo1970, 900'000'000'000) + kSecondsTo1970;
    // A time of 0 would mean "leave it".
    const auto ticks = std::max<std::int64_t>(1, seconds * kTicks + time.nanoseconds / 100);
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

Info InfoOf(DWORD attributes, DWORD sizeHigh, DWORD sizeLow, const FILETIME& changed) {
    Info info;
    // Junctions are such points, and so are files that a cloud holds back; those are told, too.
    info.type = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 ? EntryType::kLink
                : (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0   ? EntryType::kDirectory
                                                                 : EntryType::kFile;
    if (info.type == EntryType::kFile) {
        info.size = static_cast<std::uint64_t>(sizeHigh) << 32 | sizeLow;
    }
    info.changed = TimeOf(changed);
    info.rights = kRights;
    for (const auto& [letter, attribute] : kKept) {
        if ((attributes & attribute) != 0) info.rights += letter;
    }
    return info;
}

}  // namespace

Info Look(const fs::path& path, std::error_code& error, Links links) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) {
        if (links == Links::kFollow) data.dwFileAttributes &= ~FILE_ATTRIBUTE_REPARSE_POINT;
        return InfoOf(data.dwFileAttributes, data.nFileSizeHigh, data.nFileSizeLow,
                      data.ftLastWriteTime);
    }
    const std::error_code failure = LastError();
    if (!native::IsMissing(failure)) error = failure;
    return {};
}

fs::path Unlimited(const fs::path& path) {
    const std::wstring full = fs::absolute(path).make_preferred().native();
    return full.starts_with(L"\\\\") ? fs::path(full) : fs::path(L"\\\\?\\" + full);
}

bool IsName(std::string_view utf8) {
    const bool dots = utf8 == "." || utf8 == "..";
    return !utf8.empty() && !dots && std::none_of(utf8.begin(), utf8.end(), [](char c) {
        return (c >= 0 && c < ' ') || std::string_view("/\\:*?\"<>|").find(c) != std::string::npos;
    });
}

struct Reader::File {
    Handle file;
    bool atEnd = false;
};

Reader::Reader(const fs::path& path, From from, std::error_code& error)
    : file_(std::make_unique<File>()) {
    const auto open = [&](DWORD flags) {
        return Handle(CreateFileW(path.c_str(), GENERIC_READ, kShared, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_OPEN_REPARSE_POINT | flags, nullptr));
    };
    if (from == From::kDisk) file_->file = open(FILE_FLAG_NO_BUFFERING);
    // Not every file system can go past the cache.
    if (!file_->file.IsOpen()) file_->file = open(FILE_FLAG_SEQUENTIAL_SCAN);
    if (!file_->file.IsOpen()) {
        error = LastError();
    } else if (Details(error).type != EntryType::kFile && !error) {
        error = native::ErrorOf(native::Refusal::kNotAFile);
    }
}

Reader::~Reader() = default;

std::size_t Reader::Read(Block& block, std::error_code& error) {
    // Behind a piece that ends the file a read past the cache would be refused.
    if (file_->atEnd) return 0;
    DWORD got = 0;
    if (!ReadFile(file_->file.Get(), block.bytes, Block::kSize, &got, nullptr)) {
        if (GetLastError() != ERROR_HANDLE_EOF) error = LastError();
        return 0;
    }
    file_->atEnd = got < Block::kSize;
    return got;
}

Info Reader::Details(std::error_code& error) const {
    BY_HANDLE_FILE_INFORMATION data;
    if (!GetFileInformationByHandle(file_->file.Get(), &data)) {
        error = LastError();
        return {};
    }
    return InfoOf(data.dwFileAttributes, data.nFileSizeHigh, data.nFileSizeLow,
                  data.ftLastWriteTime);
}

struct Writer::File {
    Handle file;
};

Writer::Writer(const fs::path& path, const Info&, std::error_code& error)
    : file_(std::make_unique<File>()) {
    file_->file = Handle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                     FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file_->file.IsOpen()) error = LastError();
}

Writer::~Writer() = default;

void Writer::Write(std::string_view bytes, std::error_code& error) {
    while (!bytes.empty()) {
        DWORD done = 0;
        const auto piece = static_cast<DWORD>(std::min(bytes.size(), Block::kSize));
        if (!WriteFile(file_->file.Get(), bytes.data(), piece, &done, nullptr) || done == 0) {
            error = LastError();
            if (!error) error = {ERROR_DISK_FULL, std::system_category()};
            return;
        }
        bytes.remove_prefix(done);
    }
}

void Writer::Finish(const Info& info, std::error_code& error) {
    const FILETIME changed = FileTimeOf(info.changed);
    // Flushed one by one: the drive as a whole is for administrators only.
    if (!FlushFileBuffers(file_->file.Get()) ||
        !SetFileTime(file_->file.Get(), nullptr, nullptr, &changed)) {
        error = LastError();
    }
    if (!file_->file.Close() && !error) error = LastError();
}

void SetTime(const fs::path& folder, const Time& time, std::error_code& error) {
    const FILETIME changed = FileTimeOf(time);
    const Handle handle(
        CreateFileW(folder.c_str(), FILE_WRITE_ATTRIBUTES, kShared, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!handle.IsOpen() || !SetFileTime(handle.Get(), nullptr, nullptr, &changed)) {
        error = LastError();
    }
}

void SetRights(const fs::path& path, const std::string& rights, std::error_code& error) {
    if (rights.empty() || rights[0] != kRights) return;
    DWORD attributes = 0;
    for (const auto& [letter, attribute] : kKept) {
        if (rights.find(letter, 1) != rights.npos) attributes |= attribute;
    }
    if (!SetFileAttributesW(path.c_str(), attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL)) {
        error = LastError();
    }
}

std::uint64_t Room(const fs::path& folder, std::error_code& error) {
    ULARGE_INTEGER room = {};
    if (!GetDiskFreeSpaceExW(folder.c_str(), &room, nullptr, nullptr)) error = LastError();
    return room.QuadPart;
}

// Every file was flushed when it was finished, and names are written through with it.
void Flush(const fs::path&, std::error_code&) {}

void Rename(const fs::path& from, const fs::path& to, std::error_code& error) {
    if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH)) return;
    error = LastError();
    // A share may have done what it reports as failed.
    std::error_code other;
    if (error.value() != ERROR_ALREADY_EXISTS && Look(from, other).type == EntryType::kMissing &&
        !other && Look(to, other).type != EntryType::kMissing) {
        error.clear();
    }
}

void Exchange(const fs::path&, const fs::path&, std::error_code& error) {
    error = std::make_error_code(std::errc::function_not_supported);
}

struct Claim::File {
    Handle file;
};

Claim::Claim(const fs::path& folder) : file_(std::make_unique<File>()) {
    // Folders cannot be held against others here, so a file is that goes with its last handle.
    file_->file =
        Handle(CreateFileW((folder / L"in use").c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                           FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    anotherHasIt_ = !file_->file.IsOpen() && GetLastError() == ERROR_SHARING_VIOLATION;
}

Claim::~Claim() = default;

}  // namespace platform::raw
