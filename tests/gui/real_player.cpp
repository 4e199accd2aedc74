#include "tests/gui/real_player.h"

#include <gtest/gtest.h>
#include <wx/grid.h>
#include <wx/uiaction.h>
#include <wx/wx.h>

#include <algorithm>
#include <utility>

#include "views/application.h"
#include "views/basic_controls.h"
#include "views/keys.h"
#include "views/lists.h"
#include "views/wx/convert.h"

#ifdef _WIN32
#include <wx/msw/wrapwin.h>
#else
#include <wx/generic/msgdlgg.h>  // counts on what stands above

#include <gtk/gtk.h>
#endif

namespace test {
namespace {

using views::wx::Strings, views::wx::ToWx;

// While a list hangs open it cannot be told which one has it.
bool HasFocus(const wxWindow* real, [[maybe_unused]] bool expected) {
#ifdef _WIN32
    return real->IsDescendant(wxWindow::FindFocus());
#else
    // The toolkit loses sight of the focus when a list has hung open.
    if (gtk_grab_get_current() != nullptr) return expected;
    GtkWidget* widget = real->GetHandle();
    GtkWidget* focus = gtk_window_get_focus(GTK_WINDOW(gtk_widget_get_toplevel(widget)));
    return focus != nullptr && (focus == widget || gtk_widget_is_ancestor(focus, widget));
#endif
}

wxWindow* Top() {
    return wxTopLevelWindows.GetLast()->GetData();
}

// What the real controls of the form on top show other than their plain ones.
wxString DifferencesIn(const views::Form& form) {
    wxString found, name = "title";
    const auto compare = [&](const char* what, const auto& shown, const auto& expected) {
        if (shown != expected) found << name << what << shown << " not " << expected << "\n";
    };
    compare(": ", Top()->GetLabel(), ToWx(form.Caption()));
    for (const views::Control* plain : form.Controls()) {
        name = plain->Name();
        const bool focus = plain->HasFocus();
        const wxWindow* const real = RealOf(*plain);
        compare(" enabled: ", real->IsThisEnabled(), plain->Enabled());
        compare(" visible: ", real->IsShown(), plain->Visible());
        if (plain->TakesFocus()) compare(" focus: ", HasFocus(real, focus), focus);
        if (const auto* captioned = dynamic_cast<const views::CaptionedControl*>(plain))
            compare(": ", real->GetLabel(), ToWx(captioned->Caption()));
        if (const auto* box = dynamic_cast<const views::CheckBox*>(plain))
            compare(": ", static_cast<const wxCheckBox*>(real)->GetValue(), box->Value());
        if (const auto* option = dynamic_cast<const views::OptionButton*>(plain))
            compare(": ", static_cast<const wxRadioButton*>(real)->GetValue(), option->Value());
        const auto* entry = dynamic_cast<const wxTextEntry*>(real);
        if (entry != nullptr) {
            const auto& text = dynamic_cast<const views::TextPart&>(*plain);
            compare(": ", entry->GetValue(), ToWx(text.Text()));
            // The caret or the selection is seen only where the focus is.
            long from = 0, to = 0;
            entry->GetSelection(&from, &to);
            if (focus) compare(" caret: ", from, static_cast<long>(text.SelStart()));
            if (focus) compare(" marked: ", to - from, static_cast<long>(text.SelLength()));
        }
        if (const auto* items = dynamic_cast<const wxItemContainerImmutable*>(real)) {
            const auto* list = dynamic_cast<const views::ListBox*>(plain);
            const auto* drives = dynamic_cast<const views::DriveList*>(plain);
            compare(" entries: ", wxJoin(items->GetStrings(), ';'),
                    wxJoin(Strings(list ? list->Items() : drives->Items()), ';'));
            // Of a list with an edit field the text counts.
            const int index = list ? list->ListIndex() : drives->Index();
            if (!entry) compare(" entry: ", items->GetSelection(), index);
        }
        if (const auto* grid = dynamic_cast<const views::Grid*>(plain)) {
            const auto& shown = dynamic_cast<const wxGrid&>(*real);
            const int top = grid->FixedRows(), left = grid->FixedColumns();
            compare(" rows: ", shown.GetNumberRows(), grid->Rows() - top);
            compare(" row: ", shown.GetGridCursorRow(), grid->Row() - top);
            compare(" column: ", shown.GetGridCursorCol(), grid->Column() - left);
            const auto& [firstRow, firstColumn, lastRow, lastColumn] = grid->Selection();
            for (int row = top; row < grid->Rows(); ++row) {
                for (int column = left; column < grid->Columns(); ++column) {
                    compare(" marks: ", shown.IsInSelection(row - top, column - left),
                            grid->Highlight() && row >= firstRow && row <= lastRow &&
                                column >= firstColumn && column <= lastColumn);
                }
            }
        }
    }
    return found;
}

}  // namespace

void RealPlayer::Start(views::Form& form) {
    views::Screen* const before = views::InstallScreen(this);
    views::Guard([&] { views::ShowModal(form); });
    views::InstallScreen(before);
}

void RealPlayer::Run(views::Form& form) {
    wxTheApp->CallAfter([&] {
        EXPECT_TRUE(Until([&] {
            const views::Control* const focus = form.Focus();
            return focus != nullptr && RealOf(*focus)->IsDescendant(wxWindow::FindFocus());
        })) << form.Name();
        WorkIn(form);
    });
    WxScreen::Run(form);
}

// The answer comes by keyboard when the box has the focus, which it takes when it likes. Once: a
// second key would answer the box that comes next.
views::Answer RealPlayer::Show(const views::Message& message) {
    const views::Answer answer = Decide(message);
    const bool yes = answer == views::Answer::kYes || answer == views::Answer::kOk;
    int key = yes ? WXK_RETURN : WXK_ESCAPE, tries = 0;
#ifdef _WIN32
    if (answer == views::Answer::kNo) key = 'N';  // the platform's question has no Escape
    const auto hasFocus = [] {
        const HWND box = ::FindWindowW(L"#32770", nullptr);
        return box != nullptr && box == ::GetForegroundWindow();
    };
#else
    const auto hasFocus = [] {
        wxWindow* const top = wxGetTopLevelParent(wxWindow::FindFocus());
        const auto* box = dynamic_cast<wxGenericMessageDialog*>(top);
        // Its title is not cut off, and there is room for the buttons beside it.
        EXPECT_TRUE(!box || box->GetSize().x > box->GetTextExtent(box->GetTitle()).x + 100);
        return box != nullptr;
    };
#endif
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
        if (hasFocus() && key != 0) wxUIActionSimulator().Char(std::exchange(key, 0));
        // Nothing else ends a box that nobody answers.
        if (++tries > 200) std::fputs("a message box cannot be answered\n", stderr), std::_Exit(1);
    });
    timer.Start(100);
    EXPECT_EQ(WxScreen::Show(message), answer) << message.title;
    return answer;
}

void RealPlayer::Press(views::Form&, int key, int shift) {
    int code = key == views::kKeyF6 ? int(WXK_F6) : key;
    // The toolkit has them in the same order.
    if (key >= views::kKeyEnd && key <= views::kKeyDown) code += WXK_END - views::kKeyEnd;
    if (key == views::kKeyPageUp || key == views::kKeyPageDown)
        code += WXK_PAGEUP - views::kKeyPageUp;
    Key(code, (shift & views::kShift ? wxMOD_SHIFT : 0) |
                  (shift & views::kCtrl ? wxMOD_CONTROL : 0) |
                  (shift & views::kAlt ? wxMOD_ALT : 0));
}

void RealPlayer::Type(views::Form& form, char character) {
    if (character == '*' && !own.empty()) {
        const auto deed = own.front();
        own.pop_front();
        return deed(form);
    }
    // Of this layout; those of others are typed in the keyboard tests.
    const bool hasKey = character >= ' ' && character <= '~';
    if (!hasKey) return views::Guard([&] { form.KeyPress(character); });
    TypeCharacter(static_cast<char32_t>(character));
    Settle();
}

void RealPlayer::Paste(views::Control& control, const std::string& text) {
    dynamic_cast<wxTextEntry&>(*RealOf(control)).SetValue(ToWx(text));
    Settle();
}

// Row 0 and column 0 are the headings.
void RealPlayer::ClickCell(views::Grid& plain, int row, int column, bool twice) {
    ClickAt(
        [&] {
            auto* grid = static_cast<wxGrid*>(RealOf(plain));
            const wxRect cell = grid->CellToRect(std::max(row - 1, 0), std::max(column - 1, 0));
            const wxPoint at = grid->CalcScrolledPosition(cell.GetTopLeft()) + wxPoint(8, 8);
            if (row == 0) return grid->GetGridColLabelWindow()->ClientToScreen(wxPoint(at.x, 8));
            if (column == 0) return grid->GetGridRowLabelWindow()->ClientToScreen(wxPoint(8, at.y));
            return grid->GetGridWindow()->ClientToScreen(at);
        },
        twice);
}

std::string RealPlayer::Differences(const views::Form& form) {
    Until([&] { return DifferencesIn(form).empty(); }, 3000);
    return DifferencesIn(form).utf8_string();
}

// Input goes through the display server and back; a moment without any event tells that it came.
void Settle() {
    for (int quiet = 0; quiet < 3; ++quiet) {
        wxMilliSleep(5);
        while (wxTheApp->Pending()) wxTheApp->Dispatch();
        wxTheApp->ProcessPendingEvents();
        wxYield();
    }
}

bool Until(const std::function<bool()>& condition, long milliseconds) {
    for (const wxStopWatch watch; !condition(); Settle()) {
        if (watch.Time() > milliseconds) return false;
    }
    return true;
}

wxWindow* RealOf(const views::Control& control) {
    return wxWindow::FindWindowByName(ToWx(control.Name()), Top());
}

wxPoint PlaceOf(const views::Control& plain) {
    const wxWindow* const real = RealOf(plain);
    const wxSize size = real->GetSize();
    const bool list = plain.GetKind() == views::Control::Kind::kListBox;
    return real->GetScreenPosition() +
           wxPoint(size.x - 10, list ? real->GetCharHeight() / 2 + 4 : size.y / 2);
}

void ClickAt(const std::function<wxPoint()>& where, bool twice,
             const std::function<void()>& meanwhile) {
    wxUIActionSimulator mouse;
    for (wxPoint at; at != where();) {
        mouse.MouseMove(at = where());
        Settle();
    }
    if (twice) {
        mouse.MouseDblClick();
    } else {
        mouse.MouseDown();
        meanwhile();
        mouse.MouseUp();
    }
    Settle();
}

void AwaitKeyboard() {
#ifdef _WIN32
    Until([] { return ::GetForegroundWindow() == Top()->GetHWND(); }, 3000);
#else
    // A list that hangs open has it for itself.
    const auto has = [] { return gtk_window_is_active(GTK_WINDOW(Top()->GetHandle())); };
    Until([&] { return gtk_grab_get_current() != nullptr || has(); }, 3000);
#endif
}

void Key(int key, int modifiers) {
    AwaitKeyboard();
    wxUIActionSimulator().Char(key, modifiers);
    Settle();
}

}  // namespace test
