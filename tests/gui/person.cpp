#include "tests/gui/person.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/checkbox.h>
#include <wx/ctrlsub.h>
#include <wx/grid.h>
#include <wx/radiobut.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>
#include <wx/toplevel.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <algorithm>
#include <sstream>
#include <utility>

#include "text/code_page.h"
#include "views/basic_controls.h"
#include "views/lists.h"
#include "views/screen.h"
#include "views/wx/wx_screen.h"

#ifdef _WIN32
#include <wx/msw/wrapwin.h>
#else
#include <gtk/gtk.h>
#endif

namespace test {
namespace {

views::wx::WxScreen& TheRealScreen() {
    static auto& screen = dynamic_cast<views::wx::WxScreen&>(views::TheScreen());
    return screen;
}

// Whether a part of the real control has the focus.
bool HasFocus(const wxWindow* real) {
#ifdef _WIN32
    const wxWindow* focus = wxWindow::FindFocus();
    while (focus != nullptr && focus != real) focus = focus->GetParent();
    return focus != nullptr;
#else
    // The toolkit loses sight of the focus when a list has hung open.
    GtkWidget* widget = real->GetHandle();
    GtkWidget* focus = gtk_window_get_focus(GTK_WINDOW(gtk_widget_get_toplevel(widget)));
    return focus != nullptr && (focus == widget || gtk_widget_is_ancestor(focus, widget));
#endif
}

// A list that hangs open has the keyboard for itself.
bool ListIsOpen() {
#ifdef _WIN32
    return false;
#else
    return gtk_grab_get_current() != nullptr;
#endif
}

using Facts = std::pair<std::ostringstream, std::ostringstream>;

void Add(Facts& facts, const auto& shown, const auto& expected) {
    facts.first << shown << " ";
    facts.second << expected << " ";
}

void AddGrid(Facts& facts, const wxGrid& real, const views::Grid& plain) {
    const int top = plain.FixedRows(), left = plain.FixedColumns();
    Add(facts, real.GetNumberRows(), plain.Rows() - top);
    Add(facts, real.GetGridCursorRow(), plain.Row() - top);
    Add(facts, real.GetGridCursorCol(), plain.Column() - left);
    const auto& block = plain.Selection();
    for (int row = top; row < plain.Rows(); ++row) {
        for (int column = left; column < plain.Columns(); ++column) {
            Add(facts, real.IsInSelection(row - top, column - left),
                plain.Highlight() && block.firstRow <= row && row <= block.lastRow &&
                    block.firstColumn <= column && column <= block.lastColumn);
        }
    }
}

// What a real control shows, and what it should.
Facts Compared(const views::Control& plain, const wxWindow* real) {
    Facts facts;
    Add(facts, real->IsThisEnabled(), plain.Enabled());
    Add(facts, real->IsShown(), plain.Visible());
    if (const auto* captioned = dynamic_cast<const views::CaptionedControl*>(&plain)) {
        Add(facts, real->GetLabel().utf8_string(), text::ToUtf8(captioned->Caption()));
    }
    if (const auto* box = dynamic_cast<const views::CheckBox*>(&plain)) {
        Add(facts, dynamic_cast<const wxCheckBox&>(*real).GetValue(), box->Value());
    } else if (const auto* option = dynamic_cast<const views::OptionButton*>(&plain)) {
        Add(facts, dynamic_cast<const wxRadioButton&>(*real).GetValue(), option->Value());
    } else if (const auto* grid = dynamic_cast<const views::Grid*>(&plain)) {
        AddGrid(facts, dynamic_cast<const wxGrid&>(*real), *grid);
    }
    const auto* list = dynamic_cast<const views::ListBox*>(&plain);
    const auto* drives = dynamic_cast<const views::DriveList*>(&plain);
    const auto* text = dynamic_cast<const views::TextPart*>(&plain);
    const auto* entry = dynamic_cast<const wxTextEntry*>(real);
    if (list != nullptr || drives != nullptr) {
        const auto& entries = dynamic_cast<const wxItemContainerImmutable&>(*real);
        // Of a list with an edit field the text counts.
        if (entry == nullptr) {
            Add(facts, entries.GetSelection(), list ? list->ListIndex() : drives->Index());
        }
        const auto& items = list ? list->Items() : drives->Items();
        Add(facts, entries.GetCount(), items.size());
        for (unsigned i = 0; i < std::min<std::size_t>(entries.GetCount(), items.size()); ++i) {
            Add(facts, entries.GetString(i).utf8_string(), text::ToUtf8(items[i]));
        }
    }
    if (entry != nullptr && text != nullptr) {
        Add(facts, entry->GetValue().utf8_string(), text::ToUtf8(text->Text()));
        // The caret or the selection is seen only where the focus is.
        long from = 0, to = 0;
        entry->GetSelection(&from, &to);
        if (plain.HasFocus()) Add(facts, from, text->SelStart());
        if (plain.HasFocus()) Add(facts, to - from, text->SelLength());
    }
    return facts;
}

}  // namespace

// Input goes through the display server and back; a moment without any event tells that it came.
void Settle() {
    for (int quiet = 0; quiet < 3; ++quiet) {
        wxMilliSleep(5);
        while (wxTheApp->Pending()) wxTheApp->Dispatch();
        wxTheApp->ProcessPendingEvents();
        wxYield();
    }
}

void UseRealScreen() {
    TheRealScreen();
}

void WaitForFocus(const views::Form& form) {
    EXPECT_TRUE(Until([&] { return form.Focus() != nullptr; })) << "the window does not appear";
    EXPECT_TRUE(Until([&] {
        wxWindow* real = form.Focus() != nullptr ? RealOf(*form.Focus()) : nullptr;
        wxWindow* focus = wxWindow::FindFocus();
        return real != nullptr && focus != nullptr && (focus == real || focus->GetParent() == real);
    })) << "the window does not get the focus";
}

wxWindow* RealOf(const views::Control& control) {
    auto* top = TheRealScreen().Top();
    return top == nullptr ? nullptr : top->WindowOf(control);
}

void Click(const views::Control& plain, bool twice) {
    using Kind = views::Control::Kind;
    const auto where = [&, kind = plain.GetKind()] {
        const wxWindow* real = RealOf(plain);
        const wxSize size = real->GetSize();
        const int x = kind == Kind::kComboBox ? size.x - 10 : std::min(size.x / 2, 12);
        const int y = kind == Kind::kListBox ? real->GetCharHeight() / 2 + 4 : size.y / 2;
        return real->GetScreenPosition() + wxPoint(x, y);
    };
    ClickAt(where, twice);
}

void ClickAt(const std::function<wxPoint()>& where, bool twice) {
    wxUIActionSimulator simulator;
    wxPoint at;
    do {
        at = where();
        simulator.MouseMove(at);
        Settle();
    } while (at != where());
    if (twice) {
        simulator.MouseDblClick();
    } else {
        simulator.MouseDown();
        Until([] { return false; }, 100);
        simulator.MouseUp();
    }
    Settle();
}

void Drag(wxPoint from, wxPoint to) {
    wxUIActionSimulator simulator;
    simulator.MouseMove(from);
    simulator.MouseDown();
    for (int part = 1; part <= 4; ++part) {
        simulator.MouseMove(from + (to - from) * part / 4);
        Settle();
    }
    simulator.MouseUp();
    Settle();
}

void ClickCell(const views::Grid& plain, int row, int column, bool twice) {
    const auto where = [&] {
        auto* grid = static_cast<wxGrid*>(RealOf(plain));
        const wxRect cell = grid->CellToRect(std::max(row - 1, 0), std::max(column - 1, 0));
        const wxPoint at = grid->CalcScrolledPosition(cell.GetTopLeft()) + wxPoint(8, 8);
        if (row == 0) return grid->GetGridColLabelWindow()->ClientToScreen(wxPoint(at.x, 8));
        if (column == 0) return grid->GetGridRowLabelWindow()->ClientToScreen(wxPoint(8, at.y));
        return grid->GetGridWindow()->ClientToScreen(at);
    };
    ClickAt(where, twice);
}

void Key(int key, int modifiers) {
    wxUIActionSimulator().Char(key, modifiers);
    Settle();
}

bool Until(const std::function<bool()>& condition, long milliseconds) {
    const wxStopWatch watch;
    while (!condition()) {
        if (watch.Time() > milliseconds) return false;
        Settle();
    }
    return true;
}

std::string Differences(const views::Form& form) {
    std::string found;
    for (const views::Control* plain : form.Controls()) {
        const wxWindow* real = RealOf(*plain);
        if (real == nullptr) return plain->Name() + " has no window";
        const auto [shown, expected] = Compared(*plain, real);
        if (shown.str() != expected.str()) {
            found += plain->Name() + ": " + shown.str() + "not " + expected.str() + "\n";
        }
        if (plain->HasFocus() != HasFocus(real) && plain->TakesFocus() && !ListIsOpen()) {
            const wxWindow* focus = wxWindow::FindFocus();
            found += plain->Name() + (plain->HasFocus() ? " lacks" : " has") + " the focus, " +
                     (focus == nullptr ? "nobody" : focus->GetName().ToStdString()) + " has it\n";
        }
    }
    const std::string title = TheRealScreen().Top()->Window()->GetTitle().utf8_string();
    return title == text::ToUtf8(form.Caption()) ? found : found + "title: " + title + "\n";
}

}  // namespace test
