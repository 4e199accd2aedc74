// Directories on Linux, by descriptor: what is done in one is done in that one, whatever takes its
// name meanwhile.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include "platform/native.h"
#include "platform/posix/descriptor.h"

namespace platform::native {
namespace {

EntryType TypeOfMode(mode_t mode) {
    if (S_ISREG(mode)) return EntryType::kFile;
    if (S_ISDIR(mode)) return EntryType::kDirectory;
    return S_ISLNK(mode) ? EntryType::kLink : EntryType::kOther;
}

EntryType TypeAt(int folder, const char* name, int flags, std::error_code& error) {
    struct stat info;
    if (Retry([&] { return fstatat(folder, name, &info, flags); }) == 0) {
        return TypeOfMode(info.st_mode);
    }
    error = LastError();
    if (IsMissing(error)) error.clear();
    return EntryType::kMissing;
}

EntryType TypeOfEntry(const dirent& entry) {
    switch (entry.d_type) {
        case DT_REG:
            return EntryType::kFile;
        case DT_DIR:
            return EntryType::kDirectory;
        case DT_LNK:
        case DT_UNKNOWN:
            return EntryType::kLink;
        default:
            return EntryType::kOther;
    }
}

}  // namespace

struct Directory::Handle {
    Descriptor file;
};

Directory::Directory(const fs::path& path, std::error_code& error)
    : handle_(std::make_unique<Handle>()) {
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    handle_->file = Descriptor(Retry([&] { return open(path.c_str(), flags); }));
    if (!handle_->file.IsOpen()) error = LastError();
}

Directory::Directory(const Directory& parent, const fs::path& name, std::error_code& error)
    : handle_(std::make_unique<Handle>()) {
    const int folder = parent.handle_->file.Get();
    const int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    handle_->file = Descriptor(Retry([&] { return openat(folder, name.c_str(), flags); }));
    if (!handle_->file.IsOpen()) error = LastError();
    // A link is "no directory" to the platform, which must not be taken for nothing being there.
    if (error.value() == ENOTDIR) error = ErrorOf(Refusal::kNotADirectory);
}

Directory::Directory(Directory&&) noexcept = default;
Directory::~Directory() = default;

std::vector<Entry> Directory::Entries(std::error_code& error, std::size_t most) const {
    std::vector<Entry> entries;
    // A descriptor of its own: the stream moves its place and closes it.
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    Descriptor file(Retry([&] { return openat(handle_->file.Get(), ".", flags); }));
    DIR* stream = file.IsOpen() ? fdopendir(file.Get()) : nullptr;
    while (file.IsOpen() && stream == nullptr && errno == EINTR) stream = fdopendir(file.Get());
    if (stream == nullptr) {
        error = LastError();
        return entries;
    }
    file.Release();
    while (entries.size() < most) {
        errno = 0;
        const dirent* const entry = readdir(stream);
        if (entry == nullptr && errno == EINTR) continue;
        if (entry == nullptr) break;
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") entries.push_back({name, TypeOfEntry(*entry), false});
    }
    if (errno != 0) error = LastError();
    closedir(stream);
    return entries;
}

EntryType Directory::TypeOf(const fs::path& name, std::error_code& error) const {
    return TypeAt(handle_->file.Get(), name.c_str(), 0, error);
}

FileDetails Directory::Details(const fs::path& name, std::error_code& error) const {
    struct stat info = {};
    FileDetails details;
    const int folder = handle_->file.Get();
    if (Retry([&] { return fstatat(folder, name.c_str(), &info, 0); }) != 0) {
        error = LastError();
    } else if (!S_ISREG(info.st_mode)) {
        error = ErrorOf(Refusal::kNotAFile);
    } else if (localtime_r(&info.st_mtime, &details.changed) == nullptr) {
        error = LastError();
    }
    details.size = static_cast<std::uintmax_t>(info.st_size);
    return details;
}

void Directory::RemoveFile(const fs::path& name, std::error_code& error) const {
    const int folder = handle_->file.Get();
    struct stat info;
    if (Retry([&] { return fstatat(folder, name.c_str(), &info, AT_SYMLINK_NOFOLLOW); }) != 0) {
        error = LastError();
        return;
    }
    // Of a link the link itself goes, and that has no rights of its own. The mode is looked at as
    // well because the superuser is let through by the other test.
    if (!S_ISLNK(info.st_mode)) {
        if ((info.st_mode & S_IWUSR) == 0) {
            error = ErrorOf(Refusal::kReadOnly);
        } else if (Retry([&] { return faccessat(folder, name.c_str(), W_OK, 0); }) != 0) {
            error = LastError();
        }
    }
    if (!error && Retry([&] { return unlinkat(folder, name.c_str(), 0); }) != 0) {
        error = LastError();
    }
}

void Directory::RemoveFolder(const fs::path& name, std::error_code& error) const {
    const int folder = handle_->file.Get();
    if (Retry([&] { return unlinkat(folder, name.c_str(), AT_REMOVEDIR); }) != 0) {
        error = LastError();
    }
}

EntryType TypeOf(const fs::path& path, Links links, std::error_code& error) {
    return TypeAt(AT_FDCWD, path.c_str(), links == Links::kStay ? AT_SYMLINK_NOFOLLOW : 0, error);
}

void MakeDirectory(const fs::path& path, std::error_code& error) {
    if (Retry([&] { return mkdir(path.c_str(), 0777); }) != 0) error = LastError();
}

}  // namespace platform::native
