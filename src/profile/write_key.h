// Keys of a profile file, written in place.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace profile {

// The bytes of a profile file with key=value in a section. Only the bytes of the value change; a
// missing key is added behind the last line of its section, a missing section at the end. An
// empty section name stands for the lines in front of the first section.
//
// Nothing when the value would not be found again under these names: a line end or NUL in one of
// the three, a key with "=" in it or one that makes its line a comment or a section.
std::optional<std::string> WithKey(std::string_view bytes, std::string_view section,
                                   std::string_view key, std::string_view value);

// Keys with their values.
using Pairs = std::vector<std::pair<std::string, std::string>>;

// The same for several keys of a section in a file, which is read just before and replaced once,
// whole or not at all; a missing file is made. Throws FileError, with the file as it was, when it
// cannot be found out what is in it, it cannot be replaced or one of the pairs cannot be written.
void WriteKeys(std::string_view path, std::string_view section, const Pairs& pairs);

}  // namespace profile
