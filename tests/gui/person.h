// A person in front of a real window: moves the mouse and presses keys through the platform.
#pragma once

#include <wx/gdicmn.h>

#include <functional>
#include <string>

#include "views/control.h"
#include "views/form.h"
#include "views/grid.h"

class wxWindow;

namespace test {

// Remembers the real screen, before another one is put in front of it.
void UseRealScreen();

// Waits until the window of a form has the focus; fails the test when it does not get it.
void WaitForFocus(const views::Form& form);

// Lets everything that has been set off come to rest.
void Settle();

// The real window of a control of the form on top.
wxWindow* RealOf(const views::Control& control);

// The button is held down for a tenth of a second, as a hand does; in a list on its first entry, in
// a combo box on its arrow.
void Click(const views::Control& plain, bool twice = false);
// At a point of the screen, which is asked for again until it stays: windows still move a little
// when they have just appeared.
void ClickAt(const std::function<wxPoint()>& where, bool twice = false);
void Drag(wxPoint from, wxPoint to);
// A cell of a grid; row 0 and column 0 are the headings.
void ClickCell(const views::Grid& grid, int row, int column, bool twice = false);
// Keys of the toolkit (WXK_TAB, 'A'), with wxMOD_SHIFT and so on.
void Key(int key, int modifiers = 0);

// Lets the events at hand be handled until the condition holds; false when it does not in a time
// that no machine needs.
bool Until(const std::function<bool()>& condition, long milliseconds = 20000);

// What the real controls of the window on top show other than their plain ones, in words.
std::string Differences(const views::Form& form);

}  // namespace test
