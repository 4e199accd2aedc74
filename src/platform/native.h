// What the two platforms do differently below drives.h, files.h and folder.h; for this folder only.
//
// Nothing here takes "cannot be found out" for "is not there": what is missing is reported as
// kMissing or by IsMissing(error), every other failure by its own error.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "errors/errors.h"
#include "platform/drives.h"
#include "platform/folder.h"

namespace platform::native {

namespace fs = std::filesystem;
using errors::FileError;
using errors::FileErrorKind;

// Why the file layer itself refuses something that the platform would do.
enum class Refusal {
    kNotAFile = 1,   // a pipe, a device, a link to nothing or a directory where a file belongs
    kNotADirectory,  // a file or a link where a directory of its own belongs
    kReadOnly,       // the file is protected
    kGroupLost,      // the new file would belong to another group, whose members it is not for
    kNotAsWritten,   // the disk has not kept what was written
    kChanging,       // the file gets shorter while it is read
};
std::error_code ErrorOf(Refusal refusal);

// The last error of the platform's calls.
std::error_code LastError();

// The system's error kind for a code of the platform or a refusal.
FileErrorKind KindOf(const std::error_code& error);
FileErrorKind KindOfPlatform(const std::error_code& error);

// What the platform says of it to the operator, in the system's character set.
std::string Reason(const std::error_code& error);

// Whether the error says that there is no such file or directory.
inline bool IsMissing(const std::error_code& error) {
    const auto kind = KindOf(error);
    return kind == FileErrorKind::kFileNotFound || kind == FileErrorKind::kPathNotFound;
}

// Where the drive letters ('a' to 'z') lead.
class DriveSource {
  public:
    virtual ~DriveSource() = default;

    // The directory behind a letter, whether it is there or not.
    virtual fs::path Root(char letter) const = 0;
    // The volume label, "" for none; nothing for a drive that is not there or not ready.
    virtual std::optional<std::string> Label(char letter) const = 0;
    // Where drives are looked for, in words for the operator.
    virtual std::string Place() const = 0;
    virtual std::string WindowsDirectory() const = 0;
};

// The entries of a folder.
std::unique_ptr<DriveSource> DrivesIn(const fs::path& folder);
// The operator's own drives.
std::unique_ptr<DriveSource> OwnDrives();

// The entry of `folder` that a component addresses, in its present spelling; `name` itself where
// none does. Throws FileError when more than one matches or it cannot be found out.
fs::path FindEntry(const fs::path& folder, std::string_view name, Lookup lookup);

// A name of the system's character set as a native one, and back.
fs::path FromSystem(std::string_view name);
std::optional<std::string> ToSystem(const fs::path& name);

enum class EntryType {
    kMissing,
    kFile,
    kDirectory,
    kLink,   // of which it is not known yet where it leads
    kOther,  // a pipe, a device
};

// What is at the path, a link itself or what it leads to.
EntryType TypeOf(const fs::path& path, Links links, std::error_code& error);

struct Entry {
    fs::path name;
    EntryType type;
    bool hidden;
};

// A directory that stays the same one whatever happens to its name meanwhile.
class Directory {
  public:
    Directory(const fs::path& path, std::error_code& error);
    // The one of that name in another, if it is no link.
    Directory(const Directory& parent, const fs::path& name, std::error_code& error);
    Directory(Directory&&) noexcept;
    ~Directory();

    // Its entries but "." and "..", in no order; at most so many.
    std::vector<Entry> Entries(std::error_code& error, std::size_t most = SIZE_MAX) const;
    // What an entry is or leads to.
    EntryType TypeOf(const fs::path& name, std::error_code& error) const;
    FileDetails Details(const fs::path& name, std::error_code& error) const;
    // A file or link, unless it is read-only; an empty directory that is no link.
    void RemoveFile(const fs::path& name, std::error_code& error) const;
    void RemoveFolder(const fs::path& name, std::error_code& error) const;

  private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
};

void MakeDirectory(const fs::path& path, std::error_code& error);

// See files.h. The path of a link is that of what it leads to for both.
std::string ReadFile(const fs::path& path, std::error_code& error);
void ReplaceWholeFile(const fs::path& path, std::string_view bytes, std::error_code& error);

bool StartBatchFile(const fs::path& path, std::error_code& error);

// Where the platform has what can be made again, for this program and operator; need not be there.
fs::path CacheFolder(std::error_code& error);

// See operator_file.h; of an absolute path.
void ShowToOperator(const fs::path& path, std::error_code& error);

}  // namespace platform::native
