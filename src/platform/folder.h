// One directory in which several things are done one after another.
//
// Which directory a path means is found out once. A listing of many files would otherwise search
// every directory on the way for each of them, and a deletion could be led elsewhere by a link
// that takes the place of a directory between two steps.
#pragma once

#include <cstdint>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drives.h"

namespace platform {

struct FileDetails {
    std::uintmax_t size = 0;  // bytes
    std::tm changed = {};     // local time of the last change
};

enum class DirKinds {
    kFiles,                // normal files only
    kFilesAndDirectories,  // whatever there is
};

// Whether a link in the last place of a path is followed.
enum class Links { kFollow, kStay };

// Every function throws FileError when it fails.
class Folder {
  public:
    // Opens it; kPathNotFound when it is not there.
    explicit Folder(std::string_view path, Lookup lookup = Lookup::kAny);
    // Nothing when there is no such directory on the drive.
    static std::optional<Folder> IfThere(std::string_view path);
    Folder(Folder&&) noexcept;
    ~Folder();

    // The directory of that name in it, the only one without regard to case and no link.
    Folder Sub(std::string_view name) const;

    // Its entries, sorted without regard to case. What Windows hides is left out, and a name that
    // cannot be addressed: refused by Windows or with characters outside the system's set.
    std::vector<std::string> Names(DirKinds kinds) const;

    // Of a file under a name as Names gives it; kFileNotFound when it is not there any more.
    FileDetails Details(std::string_view name) const;

    // Deletes its files, hidden ones included. Of a linked file the link goes. Directories, links
    // to them, read-only files and what cannot be addressed stay; kFileNotFound when there is no
    // file, kPathFileAccess when one stays.
    void Kill() const;

    // Removes an empty directory in it, the only one of that name and no link.
    void RmDir(std::string_view name) const;

  private:
    struct State;
    explicit Folder(std::unique_ptr<State> state);

    std::unique_ptr<State> state_;
};

}  // namespace platform
