// One directory whose files are asked about one after another.
//
// Which directory a path means is found out once: a listing of many files would otherwise search
// every directory on the way for each of them.
#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

struct FileDetails {
    std::uintmax_t size;  // bytes
    std::tm changed;      // local time of the last change
};

class Folder {
  public:
    // Throws FileError as Resolve does; a directory that is missing is none of its failures.
    explicit Folder(std::string_view path);

    // Of a file under a name as Dir gives it; nothing when it is not there any more. Throws
    // FileError when the platform refuses to tell.
    std::optional<FileDetails> Details(std::string_view name) const;

  private:
    std::string path_;
    std::filesystem::path native_;
};

}  // namespace platform
