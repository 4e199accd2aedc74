#include "views/view_procedures.h"

#include <algorithm>

#include "text/numbers.h"
#include "text/strings.h"
#include "views/form.h"
#include "views/screen.h"

namespace views {

void CentreForm(Form& form) {
    form.left = (TheScreen().Width() - form.width) / 2;
    form.top = (TheScreen().Height() - form.height) / 2;
}

bool IsPrintableChar(std::string_view value) {
    if (value.empty()) return false;
    const auto code = static_cast<unsigned char>(value.front());
    return (code >= 32 && code <= 126) || code >= 160;
}

std::string CleanText(std::string& value) {
    value = std::string(text::Trim(value));
    const auto end =
        std::find_if(value.begin(), value.end(), [](char c) { return !IsPrintableChar({&c, 1}); });
    return {value.begin(), end};
}

std::string LeadingZeroText(std::string_view number) {
    const double value = text::Val(number);
    if (value < 0) return "0";
    return (value > 0 && value < 1 ? "0" : "") + std::string(number);
}

void NavigateCell(int key, int shift, bool& handled, int& row, int& column, int lastRow,
                  int lastColumn, int rowStep) {
    handled = true;
    switch (key) {
        case kKeyTab:
            column += shift == kShift ? -1 : 1;
            break;
        case kKeyEnter:
            ++row;
            break;
        case kKeyLeft:
            if (shift == kCtrl) column = 1;
            break;
        case kKeyRight:
            if (shift == kCtrl) column = lastColumn;
            break;
        case kKeyUp:
            if (shift == kCtrl) {
                row = 1;
            } else if (rowStep == 1) {
                --row;
            }
            break;
        case kKeyDown:
            if (shift == kCtrl) {
                row = lastRow;
            } else if (rowStep == 1) {
                ++row;
            }
            break;
        default:
            handled = false;
    }
}

}  // namespace views
