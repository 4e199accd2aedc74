#include "profile/encoding.h"

#include "text/code_page.h"

namespace profile {
namespace {

constexpr std::string_view kLowByteFirst = "\xFF\xFE";
constexpr std::string_view kHighByteFirst = "\xFE\xFF";

}  // namespace

std::size_t MarkLength(std::string_view bytes) {
    return bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
}

bool IsUtf16(std::string_view bytes) {
    return bytes.starts_with(kLowByteFirst) || bytes.starts_with(kHighByteFirst);
}

std::string FromUtf16(std::string_view bytes) {
    const std::size_t low = bytes.starts_with(kLowByteFirst) ? 0 : 1;
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
        const auto lowByte = static_cast<unsigned char>(bytes[at + low]);
        const auto highByte = static_cast<unsigned char>(bytes[at + 1 - low]);
        const auto unit = static_cast<char32_t>(highByte << 8 | lowByte);
        text += text::FromUnicode(unit).value_or('?');
    }
    return text;
}

std::string ToUtf16(std::string_view text, std::string_view fileBytes) {
    const bool lowFirst = fileBytes.starts_with(kLowByteFirst);
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (char c : text) {
        const char32_t unit = text::ToUnicode(c);
        const char lowByte = static_cast<char>(unit & 0xFF);
        const char highByte = static_cast<char>(unit >> 8);
        bytes += lowFirst ? lowByte : highByte;
        bytes += lowFirst ? highByte : lowByte;
    }
    return bytes;
}

}  // namespace profile
