// Between the system's bytes and the toolkit's strings: the border where what a person types or
// pastes is refused when the system's character set lacks it.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/code_page.h"

namespace views::wx {

inline wxString ToWx(std::string_view bytes) {
    const std::string utf8 = text::ToUtf8(bytes);
    return wxString::FromUTF8(utf8.data(), utf8.size());
}

inline wxArrayString Strings(const std::vector<std::string>& items) {
    wxArrayString result;
    for (const std::string& item : items) result.Add(ToWx(item));
    return result;
}

inline std::optional<std::string> FromWx(const wxString& value) {
    const auto utf8 = value.ToUTF8();
    return text::FromUtf8({utf8.data(), utf8.length()});
}

}  // namespace views::wx
