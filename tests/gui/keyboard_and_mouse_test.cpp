// What only a real keyboard and a real mouse can show: what is typed arrives as it was typed or is
// refused whole, and the toolkit's own parts do what the system wants of them.
#include <gtest/gtest.h>
#include <wx/uiaction.h>
#include <wx/wx.h>

#include "tests/gui/real_player.h"
#include "tests/support/workshop.h"
#include "text/code_page.h"
#include "views/text_box.h"

#ifndef _WIN32
#include <X11/keysym.h>
#endif

namespace {

using test::Until;

// One of each kind, the deeds that lead there, and up to which one it refuses the characters from
// 127 on.
constexpr std::pair<const char*, int> kFields[] = {
    {"click cmdSysMaterial", 255},
    {"click cmdSysMaterial, focus txtEditData", 0},
    {"click cmdSysDefaults", 159},
    {"click cmdSysDefaults, focus cboEditDataType", 0},
    {"click cmdCreate", 0}};

// Types all that the keyboard has into the field with the focus, some characters at a time over
// what is there, which stays where all are refused.
void TypeAll(test::RealPlayer& player, views::Form& form, int refused) {
    auto* const grid = dynamic_cast<views::Grid*>(form.Focus());
    auto* const text = dynamic_cast<views::TextPart*>(form.Focus());
    const auto shown = [&] { return grid ? grid->CurrentText() : text->Text(); };
    const std::u32string all = test::LayoutCharacters();
    ASSERT_GE(all.size(), 90u);
    for (std::size_t at = 0; at < all.size() && !::testing::Test::HasFailure(); at += 12) {
        if (text) text->SetText("?"), text->SelectAll();
        if (grid) test::Key(WXK_RIGHT), test::Key(WXK_LEFT);
        const std::string before = shown();
        std::string taken;
        for (const char32_t character : all.substr(at, 12)) {
            test::TypeCharacter(character);
            const auto byte = text::FromUnicode(character);
            const int code = static_cast<unsigned char>(byte.value_or('\0'));
            if (byte && (code < 127 || code > refused)) taken += *byte;
        }
        const std::string expected = taken.empty() ? before : taken;
        EXPECT_TRUE(Until([&] { return shown() == expected; }))
            << text::ToUtf8(shown()) << "\nnot " << text::ToUtf8(expected);
        EXPECT_EQ(player.Differences(form), "");
    }
}

TEST(Keyboard, EveryCharacterArrivesOrIsRefused) {
    for (const auto& [way, refused] : kFields) {
        SCOPED_TRACE(way);
        test::RealPlayer player;
        player.own = {[&, last = refused](views::Form& form) {
            for (const char* layout : {"us", "de", "fr", "gr", "pl"}) {
                SCOPED_TRACE(layout);
                if (test::UseLayout(layout)) TypeAll(player, form, last);
            }
            test::UseLayout("us");
        }};
        player.Play(test::Workshop(), way + std::string(", '*' -> ..."));
    }
}

#ifndef _WIN32

TEST(Keyboard, LocksTheNumberPadAndDeadKeys) {
    const auto press = [](std::vector<unsigned> keys) {
        return [keys](views::Form&) {
            test::UseLayout("de");
            for (const unsigned key : keys) test::Press(key);
            test::Settle();
        };
    };
    test::RealPlayer player;
    player.own = {press({XK_Caps_Lock, XK_a, XK_Caps_Lock, XK_Num_Lock, XK_KP_1, XK_KP_Subtract}),
                  press({XK_Num_Lock, XK_KP_Right}),  // a key that moves
                  press({XK_dead_acute, XK_e, XK_dead_circumflex, XK_e})};
    player.Play(test::Workshop(), R"(
click cmdSysMaterial, click 1 1 -> ...
'*' -> row 1: MS | A1- | 7.85; txtEditData "A1-"
'*' -> at 1 2; txtEditData "7.85"
F6, '*' -> row 1: MS | A1- | \xE9\xEA; txtEditData "\xE9\xEA"; focus txtEditData
no, close -> box Yes/No none "Material Types Save" "<7>Save Changes ?"
)");
}

#endif

// Held with Alt or the Windows key it is no typing, neither in the box nor in the grid. What a menu
// of the mouse pastes comes without a key, and into a box that lacks the focus; what the character
// set lacks is refused, not replaced by question marks.
TEST(Keyboard, KeysThatTypeNothingAndTheClipboard) {
    const auto held = [](views::Form&) {
        for (const int key : {test::kAltKey, test::kWindowsKey}) test::TypeCharacter(U'7', key);
        Until([] { return false; }, 100);
    };
    const auto append = [](const char* utf8) {
        return [text = wxString::FromUTF8(utf8)](views::Form&) {
            dynamic_cast<wxTextCtrl&>(*wxWindow::FindWindowByName("txtEditData")).AppendText(text);
            test::Settle();
        };
    };
    test::RealPlayer player;
    player.own = {held, held, append("\xCE\xA9"), append("\xC3\xBC"), append("\xCE\xA9")};
    player.Play(test::Workshop(), R"(
click cmdSysMaterial, click 1 1, focus txtEditData, 'abc', Shift+Left -> ...
'*' ->
Ctrl+X, Ctrl+V, Ctrl+V -> row 1: MS | abcc | 7.85; txtEditData "abcc"
Ctrl+A, Ctrl+C, End, Ctrl+V -> row 1: MS | abccabcc | 7.85; txtEditData "abccabcc"
focus grdMaterialTypes, Ctrl+A, Ctrl+C, Ctrl+V, Ctrl+X, Ctrl+Z, '*' -> unmarked; focus
  -> grdMaterialTypes
'*' ->
'*' -> row 1: MS | abccabcc\xFC | 7.85; marked; txtEditData "abccabcc\xFC"; focus txtEditData
Ctrl+Z, '*' -> ...
no, close -> box Yes/No none "Material Types Save" "<7>Save Changes ?"
)");
}

// The first click counts wherever the focus was, coming by Tab chooses nothing, and a list that
// hangs open has the keys for itself. An arrow held down steps on and on, up to the thickest plate.
TEST(Mouse, ListsAndArrows) {
    test::RealPlayer player;
    player.own = {[](views::Form& form) {
        const auto* box = dynamic_cast<wxTextCtrl*>(wxWindow::FindWindowByName("txtSpinText"));
        test::ClickAt([&] { return test::PlaceOf(*form.Focus()); }, false,
                      [&] { Until([&] { return box->GetValue() == "25"; }); });
    }};
    player.Play(test::Workshop(), R"(
click optProduction, click lstDirectory -> optProduction on; lstDirectory {p10}; lstDirectory "p10";
  -> cmdMaterial; cmdDelete; cmdPrint
click cmdMaterial, click 1 3 -> ...
focus spinButton, '*' -> row 1: 1 | MS | Plasma | 25; txtSpinText "25"; focus spinButton
no, close -> box Yes/No none "Save Material List file" "<9>Save Changes ?"
click optDesign, Shift+Tab, Tab, Tab, Tab -> optDesign on; lstDirectory {plates}; lstDirectory "";
  -> (cmdMaterial); (cmdDelete); (cmdPrint); focus cmdCreate
click drvList, no, Down, Enter -> focus drvList; box Yes/No "No Nest data on d:\nWould you like to
  -> make d: a Nest data drive?"
click cmdSysProcess, click cmdAddProcess, 'neu', click cboCopy, Up, Enter -> "Add Process";
  -> frmAddProcess; txtNewProcessName 40x0; says Process Name; txtNewProcessName "neu"; cboCopy
  -> 40x0; says Copy From; cboCopy {Plasma; Oxy Fuel; None}; cboCopy "Oxy Fuel"; focus cboCopy
Esc, Esc, click cmdSysDefaults -> ...
click cboEditDataType, Down, Enter -> row 1: 1 | SS304 | Plasma | -; cboEditDataType "SS304"; focus
  -> cboEditDataType
no, close -> focus cmdSysDefaults; box again "Save Material List file"
)");
}

// The commands know of one cell or one row only, so a drag marks nothing. The question is up by the
// second click, by mouse or as the toolkit may still have it waiting, and that must be no press of
// anything: nobody would answer another one.
TEST(Mouse, DragsAndDoubleClicks) {
    const auto next = [] { return wxGetMousePosition() + wxPoint(15, 3); };
    const auto drag = [&](views::Form&) {
        const wxPoint first = next();
        const auto onward = [&] {
            for (int i = 0; i < 8; ++i) wxUIActionSimulator().MouseMove(next()), test::Settle();
        };
        test::ClickAt([&] { return first; }, false, onward);
    };
    const auto twice = [](views::Form& form) {
        wxWindow* const button = test::RealOf(*form.Focus());
        test::ClickAt([&] { return test::PlaceOf(*form.Focus()); }, true);
        for (int i = 0; i < 2; ++i)
            wxPostEvent(button, wxCommandEvent(wxEVT_BUTTON, button->GetId()));
        test::Settle();
    };
    test::RealPlayer player;
    player.own = {drag, twice};
    player.Play(test::Workshop(), R"(
click cmdSysMaterial, click 1 1 -> ...
'*' ->
click 1 2, focus cmdDelete, no, no, '*' -> ...
Tab -> (cmdDelete); focus cmdClose
)");
}

}  // namespace
