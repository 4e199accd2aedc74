// The small procedures that all windows share. They hold no state.
#pragma once

#include "views/keys.h"

namespace views {

class Form;

// Puts a window in the middle of the screen, in the screen's own units, before it is shown.
void CentreForm(Form& form);

// The cell that a key leads to in the grid editors: Tab and Enter step, Ctrl and an arrow go to
// the edge, plain Up and Down step only when `rowStep` is 1. There is no bounds check; keeping the
// cell inside the grid is the window's business. `handled` is false for keys without a meaning,
// but true for plain Left and Right although nothing moves.
void NavigateCell(int key, int shift, bool& handled, int& row, int& column, int lastRow,
                  int lastColumn, int rowStep);

}  // namespace views
