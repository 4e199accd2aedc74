// Reading a file and replacing it whole, on Linux.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/native.h"

namespace platform::native {
namespace {

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return number_; }
    bool Close() {
        const int closing = number_;
        number_ = -1;
        return closing < 0 || close(closing) == 0;
    }

  private:
    int number_;
};

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Gives the new file the mode and, where allowed, the owner of the one that it replaces.
bool CopyPermissions(const fs::path& target, int file) {
    struct stat old;
    if (stat(target.c_str(), &old) != 0) {
        const mode_t mask = umask(0);
        umask(mask);
        return fchmod(file, 0666 & ~mask) == 0;
    }
    if (fchown(file, old.st_uid, old.st_gid) != 0) {
        // Another owner's file in a shared directory: the contents matter more than the owner.
    }
    return fchmod(file, old.st_mode & 07777) == 0;
}

bool SizeIs(int file, std::size_t size) {
    struct stat info;
    return fstat(file, &info) == 0 && static_cast<std::size_t>(info.st_size) == size;
}

}  // namespace

std::string ReadFile(const fs::path& path, std::error_code& error) {
    // Non-blocking, so that a pipe in the file's place cannot hang the program.
    Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat info;
    if (file.Get() < 0 || fstat(file.Get(), &info) != 0) {
        error = LastError();
        return {};
    }
    if (!S_ISREG(info.st_mode)) {
        error = std::make_error_code(std::errc::is_a_directory);
        return {};
    }
    std::string bytes;
    bytes.resize(static_cast<std::size_t>(info.st_size));
    std::size_t filled = 0;
    while (true) {
        // One more byte than expected tells a file that has grown meanwhile.
        if (filled == bytes.size()) bytes.resize(filled + 1 + filled / 2);
        const ssize_t got = read(file.Get(), bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) error = LastError();
        if (got <= 0) break;
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
}

void ReplaceWholeFile(const fs::path& target, std::string_view bytes, std::error_code& error) {
    std::string temporary;
    int number = -1;
    for (int attempt = 0; attempt < 100 && number < 0; ++attempt) {
        temporary = (target.parent_path() / (".quarvel-" + std::to_string(getpid()) + "-" +
                                             std::to_string(attempt) + ".tmp"))
                        .native();
        number = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (number < 0 && errno != EEXIST) break;
    }
    Descriptor file(number);
    if (number < 0) {
        error = LastError();
        return;
    }
    const bool complete = WriteAll(number, bytes) && SizeIs(number, bytes.size()) &&
                          CopyPermissions(target, number) && fsync(number) == 0 && file.Close() &&
                          rename(temporary.c_str(), target.c_str()) == 0;
    if (!complete) {
        error = LastError();
        file.Close();
        unlink(temporary.c_str());
        return;
    }
    // The new name is on the disk only when the directory is. The data are safe either way, so a
    // file system that cannot flush directories is no failure.
    Descriptor folder(open(target.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.Get() >= 0) fsync(folder.Get());
}

}  // namespace platform::native
