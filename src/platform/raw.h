// Files and folders as they are copied: by their native paths, whatever characters a name has, with
// their times and rights, and read from the disk itself where it matters what that has kept.
//
// Nothing here takes "cannot be found out" for "is not there": only kMissing says that.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/native.h"

namespace platform::raw {

namespace fs = std::filesystem;
using native::EntryType;

// Since 1970, universal time; before that the seconds are negative.
struct Time {
    std::int64_t seconds = 0;
    std::int32_t nanoseconds = 0;  // 0 to 999999999

    bool operator==(const Time&) const = default;
};

struct Info {
    EntryType type = EntryType::kMissing;
    std::uint64_t size = 0;  // bytes
    Time changed;
    // In this platform's words, without blanks; "" for the usual ones. Those of the other platform
    // mean nothing here and are left alone.
    std::string rights;
};

// What is at the path, a link itself or the folder or file that it leads to.
Info Look(const fs::path& path, std::error_code& error, Links links = Links::kStay);

// The path in the form that has no limit of its own.
fs::path Unlimited(const fs::path& path);

// Whether one component read from a list can be a name here and leads nowhere else.
bool IsName(std::string_view utf8);

// What is read at a time; it lies in memory as a read past the cache asks for.
struct alignas(4096) Block {
    static constexpr std::size_t kSize = 1 << 20;
    char bytes[kSize];
};

enum class From {
    kMemory,  // wherever the system has it
    kDisk,    // what the disk has kept, after a Flush
};

// A file while it is read; links, pipes and devices are refused.
class Reader {
  public:
    Reader(const fs::path& path, From from, std::error_code& error);
    ~Reader();
    // How many bytes there were; 0 at the end.
    std::size_t Read(Block& block, std::error_code& error);
    Info Details(std::error_code& error) const;

  private:
    struct File;
    std::unique_ptr<File> file_;
};

// A new file; one that is there already is a failure.
class Writer {
  public:
    // For nobody whom the rights leave out.
    Writer(const fs::path& path, const Info& info, std::error_code& error);
    ~Writer();
    void Write(std::string_view bytes, std::error_code& error);
    // Closes it with the time of the information.
    void Finish(const Info& info, std::error_code& error);

  private:
    struct File;
    std::unique_ptr<File> file_;
};

void SetTime(const fs::path& folder, const Time& time, std::error_code& error);
void SetRights(const fs::path& path, const std::string& rights, std::error_code& error);

// How many bytes can still be written into the folder by whoever asks.
std::uint64_t Room(const fs::path& folder, std::error_code& error);

// What was written below the folder is on the disk afterwards, new names included.
void Flush(const fs::path& folder, std::error_code& error);

// Gives it another name on the same drive; what has that name already is a failure.
void Rename(const fs::path& from, const fs::path& to, std::error_code& error);
// Both names are exchanged in one step. std::errc::function_not_supported where there is none.
void Exchange(const fs::path& a, const fs::path& b, std::error_code& error);

// The right to change what is in a folder, given up when the process ends, however it ends.
class Claim {
  public:
    explicit Claim(const fs::path& folder);
    ~Claim();
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;

    // Where it cannot be found out, as on some shares and on a disk that cannot be written, nobody
    // is taken to have it.
    bool AnotherHasIt() const { return anotherHasIt_; }

  private:
    struct File;
    std::unique_ptr<File> file_;
    bool anotherHasIt_ = false;
};

}  // namespace platform::raw
