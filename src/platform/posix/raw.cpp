// Files and folders while they are copied, on Linux.
#include "platform/raw.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/posix/descriptor.h"

namespace platform::raw {
namespace {

using native::Descriptor;
using native::LastError;
using native::Retry;

constexpr char kRights = 'm';  // the mode in octal behind it
constexpr mode_t kUsual = 0666;

Info InfoOf(const struct stat& status) {
    Info info;
    info.type = S_ISREG(status.st_mode)   ? EntryType::kFile
                : S_ISDIR(status.st_mode) ? EntryType::kDirectory
                : S_ISLNK(status.st_mode) ? EntryType::kLink
                                          : EntryType::kOther;
    info.size = info.type == EntryType::kFile ? static_cast<std::uint64_t>(status.st_size) : 0;
    info.changed = {status.st_mtim.tv_sec, static_cast<std::int32_t>(status.st_mtim.tv_nsec)};
    char mode[16];
    std::snprintf(mode, sizeof mode, "%c%o", kRights, status.st_mode & 0777u);
    info.rights = mode;
    return info;
}

mode_t ModeOf(const std::string& rights, mode_t other) {
    if (rights.empty() || rights[0] != kRights) return other;
    return static_cast<mode_t>(std::strtoul(rights.c_str() + 1, nullptr, 8)) & 0777;
}

// The time of the last reading stays.
void TimesOf(const Time& time, timespec (&times)[2]) {
    times[0] = {0, UTIME_OMIT};
    times[1] = {static_cast<time_t>(time.seconds), time.nanoseconds};
}

}  // namespace

Info Look(const fs::path& path, std::error_code& error, Links links) {
    struct stat status;
    const int flags = links == Links::kStay ? AT_SYMLINK_NOFOLLOW : 0;
    if (Retry([&] { return fstatat(AT_FDCWD, path.c_str(), &status, flags); }) == 0) {
        return InfoOf(status);
    }
    if (errno != ENOENT && errno != ENOTDIR) error = LastError();
    return {};
}

fs::path Unlimited(const fs::path& path) {
    return path;
}

bool IsName(std::string_view utf8) {
    return !utf8.empty() && utf8 != "." && utf8 != ".." &&
           utf8.find_first_of(std::string_view("/\0", 2)) == utf8.npos;
}

struct Reader::File {
    Descriptor file;
};

Reader::Reader(const fs::path& path, From from, std::error_code& error)
    : file_(std::make_unique<File>()) {
    // Without waiting, or a pipe that has taken the place of a file would hold everything up.
    const int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    file_->file = Descriptor(Retry([&] { return open(path.c_str(), flags); }));
    if (!file_->file.IsOpen()) {
        error = LastError();
        return;
    }
    if (Details(error).type != EntryType::kFile && !error) {
        error = native::ErrorOf(native::Refusal::kNotAFile);
    }
    if (from == From::kDisk) posix_fadvise(file_->file.Get(), 0, 0, POSIX_FADV_DONTNEED);
}

Reader::~Reader() = default;

std::size_t Reader::Read(Block& block, std::error_code& error) {
    const auto got = Retry([&] { return read(file_->file.Get(), block.bytes, Block::kSize); });
    if (got < 0) error = LastError();
    return got < 0 ? 0 : static_cast<std::size_t>(got);
}

Info Reader::Details(std::error_code& error) const {
    struct stat status;
    if (Retry([&] { return fstat(file_->file.Get(), &status); }) == 0) return InfoOf(status);
    error = LastError();
    return {};
}

struct Writer::File {
    Descriptor file;
};

Writer::Writer(const fs::path& path, const Info& info, std::error_code& error)
    : file_(std::make_unique<File>()) {
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    const mode_t mode = ModeOf(info.rights, kUsual) | S_IRUSR | S_IWUSR;
    file_->file = Descriptor(Retry([&] { return open(path.c_str(), flags, mode); }));
    if (!file_->file.IsOpen()) error = LastError();
}

Writer::~Writer() = default;

void Writer::Write(std::string_view bytes, std::error_code& error) {
    while (!bytes.empty()) {
        const auto done =
            Retry([&] { return write(file_->file.Get(), bytes.data(), bytes.size()); });
        if (done <= 0) {
            error = done < 0 ? LastError() : std::make_error_code(std::errc::no_space_on_device);
            return;
        }
        bytes.remove_prefix(static_cast<std::size_t>(done));
    }
}

void Writer::Finish(const Info& info, std::error_code& error) {
    timespec times[2];
    TimesOf(info.changed, times);
    if (Retry([&] { return futimens(file_->file.Get(), times); }) != 0) error = LastError();
    if (!file_->file.Close() && !error) error = LastError();
}

void SetTime(const fs::path& folder, const Time& time, std::error_code& error) {
    timespec times[2];
    TimesOf(time, times);
    const auto set = [&] {
        return utimensat(AT_FDCWD, folder.c_str(), times, AT_SYMLINK_NOFOLLOW);
    };
    if (Retry(set) != 0) error = LastError();
}

void SetRights(const fs::path& path, const std::string& rights, std::error_code& error) {
    constexpr mode_t kNone = ~mode_t{0};
    const mode_t mode = ModeOf(rights, kNone);
    if (mode != kNone && Retry([&] { return chmod(path.c_str(), mode); }) != 0) error = LastError();
}

std::uint64_t Room(const fs::path& folder, std::error_code& error) {
    return fs::space(folder, error).available;
}

void Flush(const fs::path& folder, std::error_code& error) {
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    const Descriptor file(Retry([&] { return open(folder.c_str(), flags); }));
    if (!file.IsOpen() || Retry([&] { return syncfs(file.Get()); }) != 0) error = LastError();
}

void Rename(const fs::path& from, const fs::path& to, std::error_code& error) {
    const auto rename = [&](unsigned flags) {
        return Retry(
            [&] { return renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags); });
    };
    if (rename(RENAME_NOREPLACE) == 0) return;
    error = LastError();
    if (error.value() == EINVAL || error.value() == ENOSYS) {
        // A file system that cannot promise it. What is there is looked at before.
        error.clear();
        if (Look(to, error).type != EntryType::kMissing && !error) {
            error = std::make_error_code(std::errc::file_exists);
        }
        if (!error && rename(0) != 0) error = LastError();
    }
    // A share may have done what it reports as failed.
    std::error_code other;
    if (error && error.value() != EEXIST && Look(from, other).type == EntryType::kMissing &&
        !other && Look(to, other).type != EntryType::kMissing) {
        error.clear();
    }
}

void Exchange(const fs::path& a, const fs::path& b, std::error_code& error) {
    const auto exchange = [&] {
        return renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE);
    };
    if (Retry(exchange) == 0) return;
    const bool none = errno == EINVAL || errno == ENOSYS;
    error = none ? std::make_error_code(std::errc::function_not_supported) : LastError();
}

struct Claim::File {
    Descriptor file;
};

Claim::Claim(const fs::path& folder) : file_(std::make_unique<File>()) {
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    file_->file = Descriptor(Retry([&] { return open(folder.c_str(), flags); }));
    anotherHasIt_ = file_->file.IsOpen() &&
                    Retry([&] { return flock(file_->file.Get(), LOCK_EX | LOCK_NB); }) != 0 &&
                    errno == EWOULDBLOCK;
}

Claim::~Claim() = default;

}  // namespace platform::raw
