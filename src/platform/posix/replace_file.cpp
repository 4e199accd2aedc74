// Reading a file and replacing it whole, on Linux.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "platform/native.h"
#include "platform/posix/descriptor.h"

namespace platform::native {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";

[[noreturn]] void Fail(const std::error_code& error) {
    throw std::system_error(error);
}

// The result of a call, which throws when it has failed and is made again when it was interrupted.
template <typename Call>
auto Must(Call call) {
    const auto result = Retry(call);
    if (result < 0) Fail(LastError());
    return result;
}

// The file that a save replaces, and what of it the new one keeps.
struct Target {
    fs::path path;  // no link
    bool exists = false;
    struct stat info = {};
    std::string accessList;  // empty where there is none
};

bool HasNone(int error) {
    return error == ENODATA || error == ENOTSUP || error == ENOSYS;
}

std::string AccessListOf(const fs::path& path) {
    std::string list(1 << 16, '\0');  // the platform's limit
    const auto size =
        Retry([&] { return getxattr(path.c_str(), kAccessList, list.data(), list.size()); });
    if (size < 0 && !HasNone(errno)) Fail(LastError());
    list.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
    return list;
}

Target TargetOf(const fs::path& path) {
    Target target;
    target.path = path;
    std::error_code error;
    const EntryType type = TypeOf(path, Links::kStay, error);
    if (error) Fail(error);
    if (type == EntryType::kMissing) return target;
    if (type == EntryType::kLink) {
        // A link stays a link: the file that it leads to is replaced.
        char* const real = realpath(path.c_str(), nullptr);
        if (real == nullptr) Fail(errno == ENOENT ? ErrorOf(Refusal::kNotAFile) : LastError());
        target.path = real;
        std::free(real);
    }
    Must([&] { return stat(target.path.c_str(), &target.info); });
    if (!S_ISREG(target.info.st_mode)) Fail(ErrorOf(Refusal::kNotAFile));
    // The mode is looked at as well because the superuser is let through by the other test.
    if ((target.info.st_mode & S_IWUSR) == 0) Fail(ErrorOf(Refusal::kReadOnly));
    Must([&] { return access(target.path.c_str(), W_OK); });
    target.accessList = AccessListOf(target.path);
    target.exists = true;
    return target;
}

// A new file in a directory, gone again unless it has got its final name.
class Temporary {
  public:
    Temporary(int folder, mode_t mode) : folder_(folder) {
        // The name is no other program's on any computer that sees the directory, so that what an
        // attempt leaves behind that was made and yet reported as failed can be removed.
        const auto now = std::chrono::system_clock::now().time_since_epoch().count();
        for (int attempt = 0; attempt < 10 && !file_.IsOpen(); ++attempt) {
            name_ = ".quarvel-" + std::to_string(getpid()) + "-" + std::to_string(now) + "-" +
                    std::to_string(attempt) + ".tmp";
            const int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
            file_ = Descriptor(openat(folder_, name_.c_str(), flags, mode));
            if (file_.IsOpen() || errno == EEXIST) continue;
            const std::error_code failure = LastError();
            Remove();
            if (failure.value() != EINTR) Fail(failure);
        }
        if (!file_.IsOpen()) Fail(LastError());
    }
    ~Temporary() {
        file_.Close();
        if (!renamed_) Remove();
    }

    void Write(std::string_view bytes) {
        for (auto rest = bytes; !rest.empty();) {
            const auto size = Must([&] { return write(file_.Get(), rest.data(), rest.size()); });
            if (size == 0) Fail({ENOSPC, std::generic_category()});
            rest.remove_prefix(static_cast<std::size_t>(size));
        }
        Must([&] { return fstat(file_.Get(), &info_); });
        if (static_cast<std::size_t>(info_.st_size) != bytes.size()) {
            Fail(ErrorOf(Refusal::kNotAsWritten));
        }
    }

    // Group and owner one by one: who may not give a file away can still keep it in its group.
    void TakeRightsOf(const Target& target) {
        const auto give = [&](uid_t owner, gid_t group) {
            return Retry([&] { return fchown(file_.Get(), owner, group); });
        };
        const struct stat& old = target.info;
        if (info_.st_gid != old.st_gid && give(static_cast<uid_t>(-1), old.st_gid) != 0) {
            Fail(errno == EPERM ? ErrorOf(Refusal::kGroupLost) : LastError());
        }
        if (info_.st_uid != old.st_uid && give(old.st_uid, static_cast<gid_t>(-1)) != 0 &&
            errno != EPERM && errno != EINVAL) {
            Fail(LastError());
        }
        const std::string& list = target.accessList;
        if (!list.empty()) {
            Must([&] { return fsetxattr(file_.Get(), kAccessList, list.data(), list.size(), 0); });
        } else if (Retry([&] { return fremovexattr(file_.Get(), kAccessList); }) != 0 &&
                   !HasNone(errno)) {
            Fail(LastError());
        }
        Must([&] { return fchmod(file_.Get(), old.st_mode & 07777); });
    }

    void RenameTo(const char* target) {
        Must([&] { return fsync(file_.Get()); });
        if (!file_.Close()) Fail(LastError());
        const auto rename = [&] { return renameat(folder_, name_.c_str(), folder_, target); };
        if (Retry(rename) != 0) {
            // A share may have done what it reports as failed.
            const std::error_code failure = LastError();
            struct stat now;
            if (Retry([&] { return fstatat(folder_, target, &now, AT_SYMLINK_NOFOLLOW); }) != 0 ||
                now.st_ino != info_.st_ino || now.st_dev != info_.st_dev) {
                Fail(failure);
            }
        }
        renamed_ = true;
    }

  private:
    void Remove() {
        for (int attempt = 0; attempt < 3; ++attempt) {
            if (unlinkat(folder_, name_.c_str(), 0) == 0 || errno == ENOENT) return;
        }
    }

    int folder_;
    std::string name_;
    Descriptor file_;
    struct stat info_ = {};
    bool renamed_ = false;
};

// The bytes of the file; nothing when it turned out shorter than it said.
std::optional<std::string> ReadOnce(const fs::path& path) {
    struct stat info;
    // Looked at before it is opened, which alone can set a device going.
    Must([&] { return stat(path.c_str(), &info); });
    if (!S_ISREG(info.st_mode)) Fail(ErrorOf(Refusal::kNotAFile));
    const int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
    const Descriptor file(Must([&] { return open(path.c_str(), flags); }));
    Must([&] { return fstat(file.Get(), &info); });
    std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
    for (std::size_t filled = 0;;) {
        // One more byte than expected tells a file that has grown meanwhile.
        if (filled == bytes.size()) bytes.resize(filled + 1 + filled / 2);
        const auto got =
            Must([&] { return read(file.Get(), bytes.data() + filled, bytes.size() - filled); });
        filled += static_cast<std::size_t>(got);
        if (got > 0) continue;
        bytes.resize(filled);
        if (filled < static_cast<std::size_t>(info.st_size)) return std::nullopt;
        return bytes;
    }
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
        const fs::path parent = target.path.parent_path();
        const Descriptor folder(
            Must([&] { return open(parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
        // A new file gets the rights of its directory at once; one that takes the place of
        // another is for nobody else to read until it has the rights of that.
        Temporary temporary(folder.Get(), target.exists ? 0600 : 0666);
        temporary.Write(bytes);
        if (target.exists) temporary.TakeRightsOf(target);
        temporary.RenameTo(target.path.filename().c_str());
        // The new name is on the disk only when the directory is. The data are safe either way,
        // so a file system that cannot flush directories is no failure.
        const Descriptor flushed(openat(folder.Get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (flushed.IsOpen()) fsync(flushed.Get());
    } catch (const std::system_error& failure) {
        error = failure.code();
    }
}

}  // namespace platform::native
