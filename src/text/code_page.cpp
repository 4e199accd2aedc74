#include "text/code_page.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

namespace text {
namespace {

// Windows-1252 where it differs from Latin-1: codes 128 to 159. The five codes without a
// character keep their number, so that every byte converts there and back.
constexpr std::array<char32_t, 32> kCodes128To159 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t Windows1252(unsigned code) {
    return code >= 128 && code < 160 ? kCodes128To159[code - 128] : code;
}

#ifdef _WIN32

// A multi-byte or UTF-8 code page has bytes without a character of their own; those fall back to
// Windows-1252, for the data files are single-byte whatever the system is set to.
char32_t PlatformCharacter(unsigned code) {
    const char byte = static_cast<char>(code);
    wchar_t wide = 0;
    if (code >= 128 && MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, &byte, 1, &wide, 1) == 1) {
        return wide;
    }
    return Windows1252(code);
}

char32_t PlatformLower(char32_t character) {
    wchar_t wide = static_cast<wchar_t>(character);
    CharLowerBuffW(&wide, 1);
    return wide;
}

char32_t PlatformUpper(char32_t character) {
    wchar_t wide = static_cast<wchar_t>(character);
    CharUpperBuffW(&wide, 1);
    return wide;
}

#else

char32_t PlatformCharacter(unsigned code) {
    return Windows1252(code);
}

// The letters of Windows-1252 that have both cases in it.
char32_t PlatformLower(char32_t c) {
    if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return c + 0x20;
    if (c == 0x0160 || c == 0x0152 || c == 0x017D) return c + 1;
    return c == 0x0178 ? 0xFF : c;
}

char32_t PlatformUpper(char32_t c) {
    if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) return c - 0x20;
    if (c == 0x0161 || c == 0x0153 || c == 0x017E) return c - 1;
    return c == 0xFF ? 0x0178 : c;
}

#endif

struct Tables {
    std::array<char32_t, 256> unicode;
    std::vector<std::pair<char32_t, char>> bytes;  // sorted by character
    std::array<char, 256> lower, upper;

    Tables() {
        for (unsigned code = 0; code < 256; ++code) {
            unicode[code] = PlatformCharacter(code);
            bytes.emplace_back(unicode[code], static_cast<char>(code));
        }
        std::stable_sort(bytes.begin(), bytes.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        for (unsigned code = 0; code < 256; ++code) {
            const char self = static_cast<char>(code);
            lower[code] = Find(PlatformLower(unicode[code])).value_or(self);
            upper[code] = Find(PlatformUpper(unicode[code])).value_or(self);
        }
    }

    std::optional<char> Find(char32_t character) const {
        auto at = std::lower_bound(bytes.begin(), bytes.end(), character,
                                   [](const auto& pair, char32_t c) { return pair.first < c; });
        if (at == bytes.end() || at->first != character) return std::nullopt;
        return at->second;
    }
};

const Tables& Set() {
    static const Tables tables;
    return tables;
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {  // every character of a single-byte set lies in the basic plane
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// Decodes one character and moves `at` behind it; nothing when malformed or overlong.
std::optional<char32_t> NextUtf8(std::string_view utf8, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(utf8[at++]);
    if (lead < 0x80) return lead;
    const int follow = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
    if (follow == 0 || lead > 0xF4 || utf8.size() - at < static_cast<std::size_t>(follow)) {
        return std::nullopt;
    }
    char32_t c = lead & (0x3F >> follow);
    for (int i = 0; i < follow; ++i) {
        const auto next = static_cast<unsigned char>(utf8[at++]);
        if ((next & 0xC0) != 0x80) return std::nullopt;
        c = (c << 6) | (next & 0x3F);
    }
    const bool overlong = (follow == 2 && c < 0x800) || (follow == 3 && c < 0x10000);
    return overlong ? std::nullopt : std::optional<char32_t>(c);
}

}  // namespace

std::string ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (char byte : bytes) AppendUtf8(out, ToUnicode(byte));
    return out;
}

std::optional<std::string> FromUtf8(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const auto character = NextUtf8(utf8, at);
        const auto byte = character ? FromUnicode(*character) : std::nullopt;
        if (!byte) return std::nullopt;
        out += *byte;
    }
    return out;
}

std::optional<char> FromUnicode(char32_t character) {
    return Set().Find(character);
}

char32_t ToUnicode(char byte) {
    return Set().unicode[static_cast<unsigned char>(byte)];
}

char LowerChar(char byte) {
    return Set().lower[static_cast<unsigned char>(byte)];
}

char UpperChar(char byte) {
    return Set().upper[static_cast<unsigned char>(byte)];
}

}  // namespace text
