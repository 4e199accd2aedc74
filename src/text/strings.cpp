#include "text/strings.h"

#include <algorithm>

#include "text/code_page.h"

namespace text {

std::string_view Trim(std::string_view value) {
    const auto first = value.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return value.substr(first, value.find_last_not_of(' ') - first + 1);
}

std::string_view UntilNul(std::string_view value) {
    return value.substr(0, value.find('\0'));
}

std::string LowerCase(std::string_view value) {
    std::string result(value);
    std::transform(result.begin(), result.end(), result.begin(), LowerChar);
    return result;
}

std::string UpperCase(std::string_view value) {
    std::string result(value);
    std::transform(result.begin(), result.end(), result.begin(), UpperChar);
    return result;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return x == y || UpperChar(x) == UpperChar(y); });
}

std::string CodeOf(char byte) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    return {'\\', 'x', kDigits[byte >> 4 & 15], kDigits[byte & 15]};
}

std::string ShowControls(std::string_view text) {
    std::string shown;
    for (const char c : text) {
        const bool acts = (c >= '\0' && c < ' ') || c == '\x7F';
        shown += acts ? CodeOf(c) : std::string(1, c);
    }
    return shown;
}

bool LessIgnoringCase(std::string_view a, std::string_view b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return static_cast<unsigned char>(UpperChar(x)) < static_cast<unsigned char>(UpperChar(y));
    });
}

// With one place to fall back to: the last * and what it has swallowed so far.
bool FitsWildCards(std::string_view text, std::string_view pattern) {
    std::size_t at = 0, p = 0, star = pattern.npos, resume = 0;
    while (at < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = at;
        } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == text[at])) {
            ++p;
            ++at;
        } else if (star != pattern.npos) {
            p = star + 1;
            at = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == pattern.npos;
}

}  // namespace text
