// Small operations on texts of the single-byte set that the whole system shares.
#pragma once

#include <string>
#include <string_view>

namespace text {

// Without the blanks (code 32 only) at both ends.
std::string_view Trim(std::string_view value);

// The part before the first NUL: what the platform shows of a text.
std::string_view UntilNul(std::string_view value);

std::string LowerCase(std::string_view value);
std::string UpperCase(std::string_view value);

bool EqualIgnoringCase(std::string_view a, std::string_view b);

// Whether a text fits a pattern with * and ?, which stand for any characters and for one.
bool FitsWildCards(std::string_view text, std::string_view pattern);

// A byte as \x and two digits, and a text with what a terminal would act on (codes 0 to 31 and 127)
// shown so.
std::string CodeOf(char byte);
std::string ShowControls(std::string_view text);

// Order of file names: by upper-case code, as the platform's directories sort.
bool LessIgnoringCase(std::string_view a, std::string_view b);

}  // namespace text
