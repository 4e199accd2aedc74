// What an operator would call the value of a text that came out of a profile file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/fixed_text.h"

namespace text {

// Whether the text begins with a character that prints: code 32 to 126 or 160 to 255.
bool IsPrintableChar(std::string_view value);

// The leading run of printable characters of the trimmed text. The caller's text itself is
// trimmed of blanks at both ends. A value read through the profile functions can carry a NUL and
// remains of the read buffer; this is the part that an operator would call the value.
std::string CleanText(std::string& value);

// The same for a field of fixed width, which is padded again.
template <std::size_t Width>
std::string CleanText(FixedText<Width>& field) {
    std::string value(field.View());
    std::string clean = CleanText(value);
    field = value;
    return clean;
}

}  // namespace text
