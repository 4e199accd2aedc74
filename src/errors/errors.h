// Everything that can fail, in one hierarchy:
//
//   Error          its text is for the operator: what, where, and the limit or the reason
//     FatalError   what no command expects, and ends it
//     FileError    a step on a file or directory that the file system refused
//       BadName    the name alone rules it out
//
// Who writes a file throws FileError. Who reads one tells whether it was there, and throws where
// that cannot be found out or there is more in it than the system can hold. Neither talks to the
// operator: that does the window or command that called it. What nobody catches is reported by
// views::Guard, and the application ends in order.
#pragma once

#include <stdexcept>
#include <string>

namespace errors {

class Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// A file over its capacity, an index outside a table, a printer that fails.
class FatalError : public Error {
  public:
    using Error::Error;
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

// what() is the full path and the reason.
class FileError : public Error {
  public:
    FileError(FileErrorKind kind, const std::string& path, const std::string& reason)
        // A drive is "c:" already.
        : Error(path + (path.ends_with(':') ? " " : ": ") + reason), kind_(kind), reason_(reason) {}

    FileErrorKind Kind() const { return kind_; }
    // Whether it says that there is no such file or directory.
    bool IsMissing() const {
        return kind_ == FileErrorKind::kFileNotFound || kind_ == FileErrorKind::kPathNotFound;
    }
    const std::string& Reason() const { return reason_; }

  private:
    FileErrorKind kind_;
    std::string reason_;
};

// A name that Windows refuses (kPathFileAccess). There is certainly no file of that name.
class BadName : public FileError {
  public:
    BadName(const std::string& path, const std::string& name)
        : FileError(FileErrorKind::kPathFileAccess, path, "\"" + name + "\" cannot be a name") {}
};

}  // namespace errors
