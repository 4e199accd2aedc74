// The single-byte character set of the data files.
//
// Text inside the system is bytes of that set, as it always was in these files. It is converted at
// two borders only: what a person sees (views) and file names. On Windows the set is the ANSI code
// page, elsewhere Windows-1252.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace text {

// UTF-8 of the bytes. Every byte has a character, so this never fails.
std::string ToUtf8(std::string_view bytes);

// The bytes of a UTF-8 text, or nothing when it is malformed or holds a character that the set
// lacks. Nothing is ever replaced by "?": a wrong name could address another file.
std::optional<std::string> FromUtf8(std::string_view utf8);

// The byte of a Unicode character, or nothing when the set lacks it.
std::optional<char> FromUnicode(char32_t character);

// The Unicode character of a byte.
char32_t ToUnicode(char byte);

// Letters of the set in the other case, accented ones included; independent of the locale.
char LowerChar(char byte);
char UpperChar(char byte);

}  // namespace text
