// The small procedures that all windows share. They hold no state.
#pragma once

#include <string>
#include <string_view>

#include "text/fixed_text.h"
#include "views/keys.h"

namespace views {

class Form;

// Puts a window in the middle of the screen, in the screen's own units, before it is shown.
void CentreForm(Form& form);

// Whether the text begins with a character that prints: code 32 to 126 or 160 to 255.
bool IsPrintableChar(std::string_view value);

// The leading run of printable characters of the trimmed text. The caller's text itself is
// trimmed of blanks at both ends. A value read through the profile functions can carry a NUL and
// remains of the read buffer; this is the part that an operator would call the value.
std::string CleanText(std::string& value);

// The same for a field of fixed width, which is padded again.
template <std::size_t Width>
std::string CleanText(text::FixedText<Width>& field) {
    std::string value(field.View());
    std::string clean = CleanText(value);
    field = value;
    return clean;
}

// The display form of a number's text: "0" for a negative one, a zero in front of a fraction
// (.5 becomes 0.5), everything else unchanged.
std::string LeadingZeroText(std::string_view number);

// The cell that a key leads to in the grid editors: Tab and Enter step, Ctrl and an arrow go to
// the edge, plain Up and Down step only when `rowStep` is 1. There is no bounds check; keeping the
// cell inside the grid is the window's business. `handled` is false for keys without a meaning,
// but true for plain Left and Right although nothing moves.
void NavigateCell(int key, int shift, bool& handled, int& row, int& column, int lastRow,
                  int lastColumn, int rowStep);

}  // namespace views
