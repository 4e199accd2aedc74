// Failures that end a command: thrown where they happen, with what, where and the limit or reason.
#pragma once

#include <stdexcept>
#include <string>

namespace platform {

// An error that no command of the system expects (a file over its capacity, a printer that
// fails). Its text is for the operator and names the file and the reason. Uncaught, it is
// reported and the application ends in order.
class FatalError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// How the file system refused, in the kinds that the system's steps tell apart.
enum class FileErrorKind {
    kFileNotFound,       // no file of that name
    kPathNotFound,       // a directory on the way, or the drive, is missing
    kPathFileAccess,     // exists already, not empty, a refused or ambiguous name, no permission
    kDiskFull,           // no space, or a file larger than allowed
    kDeviceUnavailable,  // the drive is there but does not answer
    kOther,
};

// A failed operation on a file or directory. what() is the full path and the reason.
class FileError : public FatalError {
  public:
    FileError(FileErrorKind kind, const std::string& path, const std::string& reason)
        // A drive is "c:" already.
        : FatalError(path + (path.ends_with(':') ? " " : ": ") + reason),
          kind_(kind),
          path_(path),
          reason_(reason) {}

    FileErrorKind Kind() const { return kind_; }
    const std::string& Path() const { return path_; }
    const std::string& Reason() const { return reason_; }

  private:
    FileErrorKind kind_;
    std::string path_;
    std::string reason_;
};

// A name that Windows refuses (kPathFileAccess). There is certainly no file of that name.
class BadName : public FileError {
  public:
    BadName(const std::string& path, const std::string& name)
        : FileError(FileErrorKind::kPathFileAccess, path, "\"" + name + "\" cannot be a name") {}
};

}  // namespace platform
