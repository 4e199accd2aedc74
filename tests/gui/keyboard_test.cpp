// What is typed at a real keyboard arrives as it was typed, or is refused whole: every character
// of several layouts, in every kind of field that takes text.
#include "tests/gui/keyboard.h"

#include <gtest/gtest.h>
#include <wx/textctrl.h>
#include <wx/window.h>

#include "tests/gui/person.h"
#include "tests/gui/real_player.h"
#include "tests/support/workshop.h"
#include "text/code_page.h"
#include "views/text_box.h"

namespace {

std::string TextIn(const views::Control& field) {
    const auto* grid = dynamic_cast<const views::Grid*>(&field);
    return grid ? grid->CurrentText() : dynamic_cast<const views::TextPart&>(field).Text();
}

// The deeds that lead to a field, and which characters it takes.
struct Field {
    const char* way;
    bool (*takes)(unsigned char);
    friend void PrintTo(const Field& field, std::ostream* out) { *out << field.way; }
};

class AtTheKeyboard : public ::testing::TestWithParam<Field> {
  protected:
    ~AtTheKeyboard() override { test::UseLayout("us"); }

    void In(const std::string& script, const std::function<void(views::Form&)>& typing) {
        test::RealPlayer player;
        player.own = typing;
        player.Play(workshop, script);
    }
    const test::Workshop workshop;
};

TEST_P(AtTheKeyboard, EveryCharacterArrivesOrIsRefused) {
    In(GetParam().way + std::string(", '*' -> ..."), [](views::Form& form) {
        views::Control& field = *form.Focus();
        auto* text = dynamic_cast<views::TextPart*>(&field);
        for (const char* layout : {"us", "de", "fr", "gr", "pl"}) {
            SCOPED_TRACE(layout);
            test::UseLayout(layout);
            const std::u32string all = test::LayoutCharacters();
            ASSERT_GE(all.size(), 90u);
            for (std::size_t at = 0; at < all.size() && !HasFailure(); at += 12) {
                // Typed over what is there, which stays where all are refused.
                if (text) text->SetText("?"), text->SelectAll();
                if (!text) test::Key(WXK_RIGHT), test::Key(WXK_LEFT);
                const std::string there = TextIn(field);
                std::string expected;
                for (const char32_t character : all.substr(at, 12)) {
                    test::TypeCharacter(character);
                    const auto byte = text::FromUnicode(character);
                    if (byte && GetParam().takes(static_cast<unsigned char>(*byte)))
                        expected += *byte;
                }
                if (expected.empty()) expected = there;
                EXPECT_TRUE(test::Until([&] { return TextIn(field) == expected; }))
                    << text::ToUtf8(TextIn(field)) << "\nnot " << text::ToUtf8(expected);
                EXPECT_EQ(test::Differences(form), "");
            }
#ifdef _WIN32
            break;
#endif
        }
        form.Dismiss();
    });
}

constexpr auto kAll = [](unsigned char) { return true; };
constexpr auto kAscii = [](unsigned char c) { return c < 127; };
constexpr auto kPrintable = [](unsigned char c) { return c < 127 || c >= 160; };

INSTANTIATE_TEST_SUITE_P(
    Fields, AtTheKeyboard,
    ::testing::Values(Field{"click cmdSysMaterial", kAscii},
                      Field{"click cmdSysMaterial, focus txtEditData", kAll},
                      Field{"click cmdSysProcess, click cmdThicknessData, focus txtEditData", kAll},
                      Field{"click cmdSysProcess, click cmdAddProcess", kAll},
                      Field{"click cmdSysDefaults", kPrintable},
                      Field{"click cmdSysDefaults, focus cboEditDataType", kAll},
                      Field{"click cmdSysDefaults, click 1 2, focus cboEditDataProcess", kAll},
                      Field{"click cmdCreate", kAll}));

#ifndef _WIN32

TEST_F(AtTheKeyboard, LocksTheNumberPadAndDeadKeys) {
    In(R"(
        click cmdSysMaterial, click 1 1 -> ...
        '*' -> row 1: MS | A1- | 7.85; txtEditData "A1-"
        '*' -> at 1 2; txtEditData "7.85"
        F6, '*' -> row 1: MS | A1- | \xE9\xEA; txtEditData "\xE9\xEA"; focus txtEditData
        no, close -> focus cmdSysMaterial; box Yes/No none "Material Types Save" "<7>Save Changes ?"
    )",
       [step = 0](views::Form&) mutable {
           const auto press = [](std::initializer_list<const char*> keys) {
               for (const std::string key : keys) {
                   key.size() == 1 ? test::TypeCharacter(static_cast<char32_t>(key[0]))
                                   : test::PressNamed(key.c_str());
               }
               test::Settle();
           };
           test::UseLayout("de");
           if (step == 0) press({"Caps_Lock", "a", "Caps_Lock", "Num_Lock", "KP_1", "KP_Subtract"});
           if (step == 1) press({"Num_Lock", "KP_Right"});  // a key that moves
           if (step == 2) press({"dead_acute", "e", "dead_circumflex", "e"});
           ++step;
       });
}

#endif

// Held with Alt or the Windows key it is no typing, neither in the box nor in the grid.
TEST_F(AtTheKeyboard, KeysThatTypeNothing) {
    In(R"(
        click cmdSysMaterial, click 1 1, focus txtEditData, 'abc', Shift+Left -> ...
        '*' ->
        Ctrl+X, Ctrl+V, Ctrl+V -> row 1: MS | abcc | 7.85; txtEditData "abcc"
        Ctrl+A, Ctrl+C, End, Ctrl+V -> row 1: MS | abccabcc | 7.85; txtEditData "abccabcc"
        focus grdMaterialTypes, Ctrl+A, Ctrl+C, Ctrl+V, Ctrl+X, Ctrl+Z, '*' -> unmarked
            -> focus grdMaterialTypes
        no, close -> focus cmdSysMaterial; box Yes/No none "Material Types Save" "<7>Save Changes ?"
    )",
       [](views::Form&) {
           for (const int held : {test::kAltKey, test::kWindowsKey}) test::PressWith(held, U'7');
           test::Until([] { return false; }, 100);
       });
}

// What the character set lacks is refused, not replaced by question marks; what a menu of the
// mouse pastes comes without a key, and into a box that lacks the focus.
TEST_F(AtTheKeyboard, PastesOfTheToolkit) {
    In(R"(
        click cmdSysMaterial, click 1 1 -> ...
        '*' ->
        '*' -> row 1: MS | Mild steel\xFC | 7.85; txtEditData "Mild steel\xFC"; focus txtEditData
        Ctrl+Z, '*' -> ...
        no, close -> focus cmdSysMaterial; box Yes/No none "Material Types Save" "<7>Save Changes ?"
    )",
       [text = wxString::FromUTF8("\xCE\xA9")](views::Form& form) mutable {
           for (const views::Control* control : form.Controls()) {
               auto* box = dynamic_cast<wxTextCtrl*>(test::RealOf(*control));
               if (box != nullptr) box->AppendText(text);
           }
           test::Settle();
           text = wxString::FromUTF8("\xC3\xBC");
       });
}

}  // namespace
