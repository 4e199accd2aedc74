#include "platform/date_forms.h"

#include "text/code_page.h"

namespace platform {

std::string SystemDateText(const std::wstring& date) {
    std::string result;
    for (const wchar_t character : date) {
        if (character == 0x200E || character == 0x200F) continue;
        const bool blank = character == 0x00A0 || character == 0x2009 || character == 0x202F;
        const auto byte = blank ? ' ' : text::FromUnicode(static_cast<char32_t>(character));
        if (!byte) return {};
        result += *byte;
    }
    return result;
}

}  // namespace platform
