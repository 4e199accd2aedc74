// Everybody can work every window: a walk through all of them with texts of each size, light and
// dark, on a small screen, that looks at each control as somebody does who sees little or nothing,
// or has no mouse.
#include <gtest/gtest.h>
#include <wx/display.h>
#include <wx/grid.h>
#include <wx/wx.h>

#include <cmath>

#include "tests/gui/real_player.h"
#include "tests/support/workshop.h"
#include "views/basic_controls.h"
#include "views/lists.h"

#ifdef _WIN32
#include <wx/msw/wrapwin.h>

#include <initguid.h>
#include <oleacc.h>
#else
#include <gtk/gtk.h>
#endif

namespace {

using Kind = views::Control::Kind;

#ifdef _WIN32

// What an aid is told over the platform's interface: of the window, or of a part of it.
IAccessible* AidHears(const wxWindow* real) {
    void* found = nullptr;
    const HWND window = static_cast<HWND>(real->GetHandle());
    ::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, &found);
    return static_cast<IAccessible*>(found);
}

wxString AidHears(const wxWindow* real, HRESULT (IAccessible::*what)(VARIANT, BSTR*),
                  long part = 0) {
    IAccessible* const told = AidHears(real);
    BSTR text = nullptr;
    VARIANT self = {};
    self.vt = VT_I4;
    self.lVal = part;
    if (told == nullptr || (told->*what)(self, &text) != S_OK) return {};
    const wxString copy(text);
    ::SysFreeString(text);
    told->Release();
    return copy;
}

bool SetTextSize(int percent, bool) {
    return percent == 100;  // a program cannot set another one for itself
}

#else

bool SetTextSize(int percent, bool dark) {
    g_object_set(gtk_settings_get_default(), "gtk-xft-dpi", 96 * 1024 * percent / 100,
                 "gtk-application-prefer-dark-theme", dark, nullptr);
    test::Settle();
    return true;
}

#endif

// The relative luminance of the guidelines for contents (WCAG 2.2), 0.05 to 1.05 with its offset.
double Light(const wxColour& colour) {
    const std::pair<int, double> parts[] = {
        {colour.Red(), 0.2126}, {colour.Green(), 0.7152}, {colour.Blue(), 0.0722}};
    double light = 0.05;
    for (const auto& [part, share] : parts) {
        const double v = part / 255.0;
        light += share * (v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4));
    }
    return light;
}

// 1 to 21; texts need 4.5.
double Contrast(const wxColour& one, const wxColour& other) {
    return std::max(Light(one), Light(other)) / std::min(Light(one), Light(other));
}

class Walk : public test::RealPlayer {
  public:
    std::set<std::string> seen;
    bool pressesMnemonics = false;

  private:
    void WorkIn(views::Form& form) override {
        SCOPED_TRACE(form.Name());
        const bool fresh = seen.insert(form.Name()).second;
        const auto named = [&](const std::string& name) -> views::Control* {
            for (auto* each : form.Controls()) {
                if (each->Name() == name) return each;
            }
            return nullptr;
        };
        if (fresh) {
            for (views::Control* each : form.Controls()) {
                if (each->Visible()) Look(*each);
            }
            if (pressesMnemonics) PressMnemonics(form);
            if (auto* name = named("txtDirName")) {
                name->SetFocus(), test::TypeCharacter(U'X'), test::Key(WXK_RETURN);
            }
            // All that lead to another window, in one where a directory is chosen.
            if (auto* list = dynamic_cast<views::ListBox*>(named("lstDirectory"))) {
                dynamic_cast<views::OptionButton&>(*named("optProduction")).Pick();
                list->Choose(0);
            }
            for (const char* opens :
                 {"cmdMaterial", "cmdCreate", "cmdBackup", "cmdPrint", "cmdSysMaterial",
                  "cmdSysProcess", "cmdAddProcess", "cmdThicknessData", "cmdThkAdd"}) {
                Open(named(opens));
            }
            if (form.Name() == "frmEditMaterialTypes") Open(named("cmdAdd"));
        }
        for (int tries = 0; form.IsOpen() && tries < 5; ++tries) test::Key(WXK_ESCAPE);
        EXPECT_FALSE(form.IsOpen());
        form.Dismiss();
    }
    views::Answer Decide(const views::Message& message) override {
        using views::Answer, views::Buttons;
        if (message.buttons == Buttons::kYesNo) return Answer::kNo;
        return message.buttons == Buttons::kOk ? Answer::kOk : Answer::kCancel;
    }

    static void Open(views::Control* button) {
        if (button == nullptr) return;
        button->SetFocus();
        EXPECT_TRUE(button->HasFocus()) << button->Name();
        test::Key(WXK_SPACE);
    }

    static void Look(views::Control& plain) {
        SCOPED_TRACE(plain.Name());
        if (plain.CanTakeFocus()) plain.SetFocus();
        test::Settle();
        wxWindow* const real = test::RealOf(plain);
        auto* const grid = dynamic_cast<wxGrid*>(real);
#ifdef _WIN32  // on Linux tools/try-accessible asks, from another process
        const wxString name =
            AidHears(grid ? grid->GetGridWindow() : real, &IAccessible::get_accName);
        EXPECT_TRUE(!plain.TakesFocus() || !name.Strip(wxString::both).empty());
#endif
        const wxSize needed = Needed(plain, *real);
        EXPECT_GE(real->GetSize().x, needed.x) << "cut off";
        EXPECT_GE(real->GetSize().y, needed.y) << "cut off";
        // What has no focus may have to be scrolled into view, the rest has been.
        wxString where;
        EXPECT_TRUE(test::Until([&] { return (where = CutOff(plain, *real)).empty(); }, 3000))
            << where;
        if (grid != nullptr) LookAt(*grid, dynamic_cast<views::Grid&>(plain));
    }

    // What reaches beyond what is around it, or the window beyond the screen. What has the focus
    // has been scrolled into view, the rest may have to be.
    static wxString CutOff(const views::Control& plain, const wxWindow& real) {
        const auto text = [](const wxRect& rect) {
            return wxString::Format("%d,%d %d x %d ", rect.x, rect.y, rect.width, rect.height);
        };
        wxRect place = real.GetScreenRect();
        // GTK gives the place inside of a frame for its own.
        if (plain.GetKind() == Kind::kFrame) {
            place.SetPosition(real.GetParent()->ClientToScreen(real.GetPosition()));
        }
        for (wxWindow* around = real.GetParent();; around = around->GetParent()) {
            if (!plain.CanTakeFocus() && dynamic_cast<wxScrolledWindow*>(around)) return {};
            const wxRect inside(around->ClientToScreen(wxPoint()), around->GetClientSize());
            if (!inside.Contains(place)) return text(place) + "in " + text(inside);
            if (!around->IsTopLevel()) continue;
            const wxRect all = around->GetScreenRect();
            return wxDisplay(0u).GetGeometry().Contains(all) ? wxString() : text(all);
        }
    }

    static wxSize Needed(const views::Control& plain, const wxWindow& real) {
        const auto* const captioned = dynamic_cast<const views::CaptionedControl*>(&plain);
        const int line = real.GetCharHeight();
        if (captioned == nullptr) return {line, line + real.FromDIP(8)};
        if (plain.GetKind() == Kind::kFrame) return {real.GetTextExtent(real.GetLabel()).x, line};
        return real.GetBestSize();
    }

    // Every cell is told and has room for its text, which can be told from what is behind it.
    static void LookAt(const wxGrid& grid, const views::Grid& plain) {
        for (int row = 1; row < plain.Rows(); ++row) {
            for (int column = 0; column < plain.Columns(); ++column) {
                const auto text = wxString(plain.Text(row, column)).Strip(wxString::both);
#ifdef _WIN32
                const auto heading = wxString(plain.Text(0, column)).Strip(wxString::both);
                const long cell = row * plain.Columns() + column + 1;
                EXPECT_EQ(AidHears(grid.GetGridWindow(), &IAccessible::get_accName, cell),
                          wxString::Format("%s, row %d", heading, row));
                EXPECT_EQ(AidHears(grid.GetGridWindow(), &IAccessible::get_accValue, cell), text);
#endif
                EXPECT_GT(column > 0 ? grid.GetColSize(column - 1) : grid.GetRowLabelSize(),
                          grid.GetTextExtent(text).x);
            }
        }
        EXPECT_GE(Contrast(grid.GetDefaultCellTextColour(), grid.GetDefaultCellBackgroundColour()),
                  4.5);
        EXPECT_GE(Contrast(grid.GetLabelTextColour(), grid.GetLabelBackgroundColour()), 4.5);
    }

    // Each letter leads to its control and to no other. One that the window has twice goes round.
    static void PressMnemonics(views::Form& form) {
        std::map<char, std::set<views::Control*>> holders;
        std::set<views::Control*> pressed;
        std::vector<std::tuple<views::CommandButton*, std::function<void()>, bool>> buttons;
        const auto controls = form.Controls();
        for (std::size_t i = 0; i < controls.size(); ++i) {
            auto* const captioned = dynamic_cast<views::CaptionedControl*>(controls[i]);
            const std::string caption = captioned ? captioned->Caption() : "";
            const auto mark = caption.find('&');
            if (mark == std::string::npos) continue;
            auto* const button = dynamic_cast<views::CommandButton*>(captioned);
            if (button) {
                buttons.emplace_back(button, button->onClick, button->Enabled());
                button->onClick = [&pressed, button] { pressed.insert(button); };
                button->SetEnabled(true);
            }
            views::Control* const target = captioned->TakesFocus() ? captioned : controls[i + 1];
            holders[static_cast<char>(std::toupper(caption[mark + 1]))].insert(target);
        }
        for (const auto& [letter, held] : holders) {
            const auto twice = form.Name() + letter;
            const bool given = twice == "frmProcessDefaultsE" || twice == "frmEditMaterialListC";
            EXPECT_EQ(held.size(), given ? 2u : 1u) << letter;
            std::set<views::Control*> reached;
            for (std::size_t i = 0; i < held.size(); ++i) {
                test::Key(letter, wxMOD_ALT);
                reached.insert(form.Focus());
            }
            EXPECT_EQ(reached, held) << letter;
            for (auto* each : held) {
                const bool button = each->GetKind() == Kind::kButton;
                EXPECT_EQ(pressed.count(each), button ? 1u : 0u) << letter;
            }
        }
        for (auto& [button, command, enabled] : buttons) {
            button->onClick = command;
            button->SetEnabled(enabled);
        }
    }
};

}  // namespace

TEST(Accessible, EveryWindowInEverySize) {
    for (const int percent : {100, 150, 200}) {
        for (const bool dark : {false, true}) {
            if (!SetTextSize(percent, dark)) continue;
            SCOPED_TRACE(std::to_string(percent) + (dark ? " dark" : " light"));
            Walk walk;
            walk.pressesMnemonics = percent == 100 && !dark;
            const test::Workshop workshop;
            workshop.MakeDir("a:");  // to back up to
            walk.Play(workshop, "-> ...");
            EXPECT_EQ(walk.seen.size(), 12u) << ::testing::PrintToString(walk.seen);
        }
    }
    SetTextSize(100, false);
}
