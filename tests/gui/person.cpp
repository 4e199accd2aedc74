#include "tests/gui/person.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/dialog.h>
#include <wx/grid.h>
#include <wx/listbox.h>
#include <wx/modalhook.h>
#include <wx/radiobut.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>
#include <wx/timer.h>
#include <wx/uiaction.h>
#include <wx/utils.h>
#include <wx/window.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <utility>

#include "text/code_page.h"
#include "views/application.h"
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

// A list that hangs open has the keyboard for itself.
bool ListIsOpen() {
#ifdef _WIN32
    return false;
#else
    return gtk_grab_get_current() != nullptr;
#endif
}

constexpr long kPatience = 20000;  // milliseconds

views::wx::WxScreen& TheRealScreen() {
    static auto& screen = dynamic_cast<views::wx::WxScreen&>(views::TheScreen());
    return screen;
}

// Presses the key again and again until the box is gone: it takes the focus when it likes.
class BoxAnswer : public wxModalDialogHook, public wxTimer {
  public:
    explicit BoxAnswer(int key) : key_(key) {
        Register();
#ifdef _WIN32
        Enter(nullptr);  // of the platform's own box the toolkit knows nothing
#endif
    }

  protected:
    int Enter(wxDialog* dialog) override {
        waited_.Start();
        dialog_ = dialog;
        Start(100);
        return wxID_NONE;
    }
    void Exit(wxDialog*) override { End(); }
    void Notify() override {
        if (waited_.Time() > kPatience) {
            std::fputs("a message box cannot be answered\n", stderr);
            std::_Exit(1);  // nothing else ends a box that nobody answers
        }
#ifdef _WIN32
        const HWND now = TitleOfBox().empty() ? nullptr : ::GetForegroundWindow();
        if (box_ != nullptr && now != box_) return End();
        // Once: pressed twice, the second one would answer the box that comes next.
        if (now == nullptr || std::exchange(box_, now) == now) return;
#else
        // A second press would go to the window below, unless the first one came too early.
        const wxWindow* focus = wxWindow::FindFocus();
        const bool ready =
            focus != nullptr && wxGetTopLevelParent(const_cast<wxWindow*>(focus)) == dialog_;
        if (!ready || waited_.Time() < nextPress_) return;
        nextPress_ = waited_.Time() + 2000;
#endif
        wxUIActionSimulator().Char(key_);
    }

  private:
    void End() {
        Stop();
        Unregister();
        wxTheApp->ScheduleForDestruction(this);
    }

    int key_;
    wxStopWatch waited_;
    const wxDialog* dialog_ = nullptr;
    long nextPress_ = 0;
#ifdef _WIN32
    HWND box_ = nullptr;
#endif
};

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

// With the caret or the selection where the control has the focus; nobody sees it elsewhere.
std::string Shown(const wxTextEntry& real, bool focus) {
    long from = 0, to = 0;
    if (focus) real.GetSelection(&from, &to);
    return wxString::Format("'%s' %ld-%ld", real.GetValue(), from, to).ToStdString(wxConvUTF8);
}

std::string Expected(const views::TextPart& plain, bool focus) {
    const std::size_t from = focus ? plain.SelStart() : 0, length = focus ? plain.SelLength() : 0;
    return "'" + text::ToUtf8(plain.Text()) + "' " + std::to_string(from) + "-" +
           std::to_string(from + length);
}

std::string Marked(const wxGrid& real) {
    std::string cells;
    for (int row = 0; row < real.GetNumberRows(); ++row) {
        for (int column = 0; column < real.GetNumberCols(); ++column) {
            if (!real.IsInSelection(row, column)) continue;
            cells += " " + std::to_string(row) + "," + std::to_string(column);
        }
    }
    return "cell " + std::to_string(real.GetGridCursorRow()) + "," +
           std::to_string(real.GetGridCursorCol()) + " marked" + cells;
}

std::string Expected(const views::Grid& plain) {
    std::string cells;
    const auto& block = plain.Selection();
    for (int row = block.firstRow; plain.Highlight() && row <= block.lastRow; ++row) {
        for (int column = block.firstColumn; column <= block.lastColumn; ++column) {
            cells += " " + std::to_string(row - 1) + "," + std::to_string(column - 1);
        }
    }
    return "cell " + std::to_string(plain.Row() - 1) + "," + std::to_string(plain.Column() - 1) +
           " marked" + cells;
}

// What a real control shows, and what it should.
std::pair<std::string, std::string> Compared(const views::Control& plain, const wxWindow* real) {
    using Kind = views::Control::Kind;
    switch (plain.GetKind()) {
        case Kind::kCheckBox:
            return {std::to_string(static_cast<const wxCheckBox*>(real)->GetValue()),
                    std::to_string(static_cast<const views::CheckBox&>(plain).Value())};
        case Kind::kOption:
            return {std::to_string(static_cast<const wxRadioButton*>(real)->GetValue()),
                    std::to_string(static_cast<const views::OptionButton&>(plain).Value())};
        case Kind::kTextBox:
            return {Shown(*static_cast<const wxTextCtrl*>(real), plain.HasFocus()),
                    Expected(static_cast<const views::TextBox&>(plain), plain.HasFocus())};
        case Kind::kComboBox:
            return {Shown(*static_cast<const wxComboBox*>(real), plain.HasFocus()),
                    Expected(static_cast<const views::ComboBox&>(plain), plain.HasFocus())};
        case Kind::kListBox:
        case Kind::kDropDownList: {
            const auto& list = static_cast<const views::ListBox&>(plain);
            const int index = plain.GetKind() == Kind::kListBox
                                  ? static_cast<const wxListBox*>(real)->GetSelection()
                                  : static_cast<const wxChoice*>(real)->GetSelection();
            return {std::to_string(index), std::to_string(list.ListIndex())};
        }
        case Kind::kDriveList:
            return {static_cast<const wxChoice*>(real)->GetStringSelection().ToStdString(),
                    static_cast<const views::DriveList&>(plain).Drive()};
        case Kind::kGrid:
            return {Marked(*static_cast<const wxGrid*>(real)),
                    Expected(static_cast<const views::Grid&>(plain))};
        default:
            return {};
    }
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

void WorkIn(views::Form& form, const std::function<void()>& steps) {
    views::ResetApplication();  // a test before may have ended its run
    bool done = false;
    wxTheApp->CallAfter([&] {
        WaitForFocus(form);
        if (!::testing::Test::HasFailure()) steps();
        done = true;
        if (form.IsOpen()) form.Close();
    });
    views::ShowModal(form);
    EXPECT_TRUE(done);
}

wxWindow* RealOf(const views::Control& control) {
    auto* top = TheRealScreen().Top();
    return top == nullptr ? nullptr : top->WindowOf(control);
}

void Click(const views::Control& control) {
    ClickAt([&] {
        const wxWindow* real = RealOf(control);
        const wxSize size = real->GetSize();
        return real->GetScreenPosition() + wxPoint(std::min(size.x / 2, 12), size.y / 2);
    });
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

wxPoint CellAt(const views::Grid& plain, int row, int column) {
    auto* grid = static_cast<wxGrid*>(RealOf(plain));
    const wxRect cell = grid->CellToRect(std::max(row - 1, 0), std::max(column - 1, 0));
    const wxPoint at = grid->CalcScrolledPosition(cell.GetTopLeft()) + wxPoint(8, 8);
    if (row == 0) return grid->GetGridColLabelWindow()->ClientToScreen(wxPoint(at.x, 8));
    if (column == 0) return grid->GetGridRowLabelWindow()->ClientToScreen(wxPoint(8, at.y));
    return grid->GetGridWindow()->ClientToScreen(at);
}

void ClickCell(const views::Grid& grid, int row, int column, bool twice) {
    ClickAt([&] { return CellAt(grid, row, column); }, twice);
}

void Key(int key, int modifiers) {
    wxUIActionSimulator().Char(key, modifiers);
    Settle();
}

void Type(const char* text) {
    for (; *text != '\0'; ++text) Key(*text);
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
        if (shown != expected) found += plain->Name() + ": " + shown + ", not " + expected + "\n";
        if (real->IsThisEnabled() != plain->Enabled()) found += plain->Name() + ": enabled\n";
        if (real->IsShown() != plain->Visible()) found += plain->Name() + ": visible\n";
        if (plain->HasFocus() != HasFocus(real) && plain->TakesFocus() && !ListIsOpen()) {
            const wxWindow* focus = wxWindow::FindFocus();
            found += plain->Name() + (plain->HasFocus() ? " lacks" : " has") + " the focus, " +
                     (focus == nullptr ? "nobody" : focus->GetName().ToStdString()) + " has it\n";
        }
    }
    return found;
}

std::string TitleOfBox() {
#ifdef _WIN32
    wchar_t text[64] = L"";
    ::GetClassNameW(::GetForegroundWindow(), text, 8);
    if (std::wcscmp(text, L"#32770") != 0) return {};
    ::GetWindowTextW(::GetForegroundWindow(), text, 64);
    return wxString(text).ToStdString();
#else
    return {};
#endif
}

void AnswerNextBox(bool yes) {
#ifdef _WIN32
    const int no = 'N';  // a Yes/No box of this platform cannot be dismissed
#else
    const int no = WXK_ESCAPE;
#endif
    new BoxAnswer(yes ? WXK_RETURN : no);
}

}  // namespace test
