// What the readers and writers of the system's data files share: the one buffer that all values of
// a run come through, numbered keys, and the lines of a file that is written as a whole.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"
#include "profile/profile.h"

namespace profile {

// What came of reading a data file.
enum class ReadResult { kRead, kMissing, kTooBig };

// "Mat12": names of numbered keys and sections count from 1.
inline std::string Numbered(std::string_view name, int n) {
    return std::string(name).append(std::to_string(n));
}

// The file, opened and parsed once; nothing when there is none. Throws FileError when it cannot be
// read, or cannot be found out whether there is one.
inline std::optional<Profile> LoadDataFile(const std::string& path) {
    auto bytes = platform::ReadFileIfThere(path);
    if (!bytes) return std::nullopt;
    return Profile(std::move(*bytes));
}

// Reads the values of one file one after the other, each cut to the 254 characters that fit.
class ValueReader {
  public:
    explicit ValueReader(const Profile& file) : file_(file) {}

    // The value, "" when there is none and no default. Valid until the next read.
    std::string_view Read(std::string_view section, std::string_view key,
                          std::string_view otherwise = {}) {
        return {buffer_.data(), file_.Read(section, key, otherwise, buffer_)};
    }

    // The whole buffer: the last value, a NUL and what earlier, longer values left behind it. All
    // NULs before the first read.
    std::string_view Buffer() const { return {buffer_.data(), buffer_.size()}; }

  private:
    const Profile& file_;
    std::array<char, Profile::kBufferSize> buffer_{};
};

// The lines of a data file, each ended by CR LF.
class FileLines {
  public:
    template <typename... Parts>
    void Line(const Parts&... parts) {
        (bytes_.append(parts), ...);
        bytes_ += "\r\n";
    }
    // A blank line of these files has always been a lone CR, and every byte of them is kept.
    void BlankLine() { Line("\r"); }

    const std::string& Bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

}  // namespace profile
