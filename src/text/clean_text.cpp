#include "text/clean_text.h"

#include <algorithm>

#include "text/strings.h"

namespace text {

bool IsPrintableChar(std::string_view value) {
    if (value.empty()) return false;
    const auto code = static_cast<unsigned char>(value.front());
    return (code >= 32 && code <= 126) || code >= 160;
}

std::string CleanText(std::string& value) {
    value = std::string(Trim(value));
    const auto end =
        std::find_if(value.begin(), value.end(), [](char c) { return !IsPrintableChar({&c, 1}); });
    return {value.begin(), end};
}

}  // namespace text
