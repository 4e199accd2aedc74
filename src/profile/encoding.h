// Byte order marks of profile files. The system's own editors put one in when they are asked for
// Unicode, and the platform's profile functions go on working on such a file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace profile {

// The length of a UTF-8 byte order mark at the start, which is skipped. The text behind it is taken
// for bytes of the single-byte set as any other.
std::size_t MarkLength(std::string_view bytes);

// Whether a UTF-16 byte order mark of either byte order is at the start.
bool IsUtf16(std::string_view bytes);

// The text behind the mark, one byte for each 16-bit unit, "?" for what the set lacks. Half a unit
// at the end is left out.
std::string FromUtf16(std::string_view bytes);

// The text in the byte order of a UTF-16 file, without a mark.
std::string ToUtf16(std::string_view text, std::string_view fileBytes);

}  // namespace profile
