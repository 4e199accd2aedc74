#include "views/view_procedures.h"

#include "views/form.h"
#include "views/screen.h"

namespace views {

void CentreForm(Form& form) {
    form.left = (TheScreen().Width() - form.width) / 2;
    form.top = (TheScreen().Height() - form.height) / 2;
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
