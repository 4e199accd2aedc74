// A folder with all that is in it, while it is backed up, checked and brought back.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "errors/errors.h"
#include "platform/raw.h"

namespace archive {

namespace fs = std::filesystem;
namespace raw = platform::raw;

// Of files by their native names: what() is UTF-8 already, as the system's set may lack some of
// their characters. Control characters in names are shown as codes.
class NativeError : public errors::Error {
  public:
    using errors::Error::Error;
    NativeError(const fs::path& path, const std::error_code& error);
};

// What any failure says, in UTF-8.
std::string Said(const std::exception& failure);

// A path or name for a person, in UTF-8, and the reason of the platform.
std::string Shown(const fs::path& path);
std::string Shown(const std::string& name);
std::string Reason(const std::error_code& error);

struct Item {
    // Below the top folder, with / between the components: UTF-8, on Linux the bytes that the name
    // has. Empty for the top folder itself.
    std::string name;
    raw::Info info;        // of a file or a folder
    std::string checksum;  // of a file: its SHA-256 in hexadecimal digits

    bool IsFolder() const { return info.type == raw::EntryType::kDirectory; }
    fs::path In(const fs::path& top) const;
};

// What the command tells while it works.
struct Telling {
    std::function<void(const std::string& line)> say = [](const std::string&) {};  // UTF-8
    // How much is done, 0 to 100, and with which file it goes on.
    std::function<void(int percent, const std::string& name)> progress = [](int,
                                                                            const std::string&) {};
};

// How far something is that goes through bytes several times.
class Progress {
  public:
    Progress(const Telling& telling, std::uint64_t total) : telling_(telling), total_(total) {}
    void Add(std::uint64_t bytes, const std::string& name);
    const Telling& Told() const { return telling_; }

  private:
    const Telling& telling_;
    std::uint64_t total_, done_ = 0;
};

// A file's share of the progress: its bytes, and something for being a file.
std::uint64_t WorkOf(const Item& item);
std::uint64_t WorkOf(const std::vector<Item>& items);
std::uint64_t BytesOf(const std::vector<Item>& items);
// "3 files, 51 bytes".
std::string FilesAndBytes(const std::vector<Item>& items);

struct Remark {
    std::string name, reason;
};

struct Contents {
    std::vector<Item> items;         // the top folder first, each folder before what is in it
    std::vector<Remark> leftOut;     // neither files nor folders of its own
    std::vector<Remark> unreadable;  // and so is what is in it
};

// What is below a folder; without what is not wanted, which is asked by its path.
using Wanted = std::function<bool(const Item& item, const fs::path& path)>;
Contents ContentsOf(
    const fs::path& top, const Wanted& wanted = [](const Item&, const fs::path&) { return true; });

enum class Copied {
    kAsItWas,
    kChanged,   // by another program, while it was read
    kVanished,  // before it was read
    kUnreadable,
};

// Copies one file. The item gets what was really read: size, time, checksum. `why` is for what
// cannot be read; `as` has the time and rights of the copy where they are not those of the file.
// Throws NativeError for what cannot be written.
Copied CopyFile(const fs::path& from, const fs::path& to, Item& item, Progress& progress,
                std::string& why, const raw::Info* as = nullptr);

// What in a folder is other than the items say.
struct Differences {
    std::vector<std::string> added, missing, changed;
    std::vector<Remark> unreadable;

    bool None() const {
        return added.empty() && missing.empty() && changed.empty() && unreadable.empty();
    }
    // Tells each, with a word of what it is.
    void Tell(const Telling& telling) const;
};

// Reads every file whose size is right and compares its checksum. Times and rights are not looked
// at, and `ignored` is no addition.
Differences Compare(const fs::path& top, const std::vector<Item>& items, raw::From from,
                    Progress& progress, const std::string& ignored = {});

// Throws NativeError when something of it stays.
void RemoveTree(const fs::path& path);

}  // namespace archive
