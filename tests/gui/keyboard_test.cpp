// What is typed at a real keyboard arrives as it was typed, or is refused whole: every character
// of several layouts, in every kind of field that takes text.
#include "tests/gui/keyboard.h"

#include <gtest/gtest.h>
#include <wx/textctrl.h>
#include <wx/window.h>

#include "tests/gui/person.h"
#include "tests/gui/real_player.h"
#include "tests/support/workshop.h"
#include "text/clean_text.h"
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
    bool (*takes)(char);
};

class AtTheKeyboard : public ::testing::TestWithParam<Field> {
  protected:
    ~AtTheKeyboard() override { test::UseLayout("us"); }

    void In(const std::string& way, const std::function<void(views::Form&)>& typing) {
        test::RealPlayer player;
        player.own = [&](views::Form& form) {
            typing(form);
            form.Dismiss();
        };
        player.Play(workshop, way + ", '*' -> ...");
    }
    const test::Workshop workshop;
};

TEST_P(AtTheKeyboard, EveryCharacterArrivesOrIsRefused) {
    In(GetParam().way, [](views::Form& form) {
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
                    if (byte && GetParam().takes(*byte)) expected += *byte;
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
    });
}

bool All(char) {
    return true;
}
bool Ascii(char c) {
    return c >= 32 && c <= 126;
}
bool Printable(char c) {
    return text::IsPrintableChar({&c, 1});
}

INSTANTIATE_TEST_SUITE_P(
    Fields, AtTheKeyboard,
    ::testing::Values(Field{"click cmdSysMaterial", Ascii},
                      Field{"click cmdSysMaterial, focus txtEditData", All},
                      Field{"click cmdSysProcess, click cmdThicknessData, focus txtEditData", All},
                      Field{"click cmdSysProcess, click cmdAddProcess", All},
                      Field{"click cmdSysDefaults", Printable},
                      Field{"click cmdSysDefaults, focus cboEditDataType", All},
                      Field{"click cmdSysDefaults, click 1 2, focus cboEditDataProcess", All},
                      Field{"click cmdCreate", All}));

// Ways to type that no layout has on a key, and keys that type nothing.
TEST_F(AtTheKeyboard, OtherWaysToType) {
    In("click cmdSysMaterial", [](views::Form& form) {
        views::Control& grid = *form.Focus();
        const auto shows = [&](const std::string& text) {
            EXPECT_TRUE(test::Until([&] {
                return TextIn(grid) == text && test::Differences(form).empty();
            })) << TextIn(grid)
                << ", not " << text << "; " << test::Differences(form);
        };
        const auto press = [](const char* keys) {
            for (; *keys != '\0'; ++keys) test::Key(*keys, wxMOD_CONTROL);
        };
        test::Key(WXK_TAB), test::Key(WXK_TAB);  // to the last cell
        test::Key(WXK_LEFT);
#ifndef _WIN32
        test::UseLayout("de");
        test::PressNamed("Caps_Lock");
        test::TypeCharacter(U'a');
        for (const char* key : {"Caps_Lock", "Num_Lock", "KP_1", "KP_Delete", "KP_Subtract"}) {
            test::PressNamed(key);
        }
        shows("A1,-");
        test::PressNamed("Num_Lock");
        test::PressNamed("KP_Right");  // without Num Lock a key that moves
        shows("7.85");
        test::Key(WXK_LEFT);
#endif
        test::Key(WXK_F6);
        auto& box = dynamic_cast<views::TextPart&>(*form.Focus());
#ifndef _WIN32
        for (const char* dead : {"dead_acute", "dead_circumflex"}) {
            test::PressNamed(dead);
            test::TypeCharacter(U'e');
        }
        shows("\xE9\xEA");
        test::UseLayout("us");
#endif
        // Held with Alt or the Windows key it is no typing: the text and what is selected stay.
        box.Edited("abc", 3);
        box.Select(1, 1);
        for (const int held : {test::kAltKey, test::kWindowsKey}) {
            for (const char32_t key : {U'x', U'7'}) test::PressWith(held, key);
        }
        test::Until([] { return false; }, 100);
        shows("abc");
        EXPECT_EQ(box.SelLength(), 1u);
        press("XVV");
        shows("abbc");
        press("AC");
        test::Key(WXK_END);
        press("V");
        shows("abbcabbc");
        // Pasting what the character set lacks is refused, not replaced by question marks.
        auto* real = dynamic_cast<wxTextEntry*>(test::RealOf(*form.Focus()));
        real->WriteText(wxString::FromUTF8("\xCE\xA9"));
        shows("abbcabbc");
        press("Z");  // undone where the platform does that, and shown so
        shows(box.Text());
        // Into a grid the same keys type nothing.
        const std::string there = box.Text();
        grid.SetFocus();
        press("ACVXZ");
        for (const int held : {test::kAltKey, test::kWindowsKey}) test::PressWith(held, U'7');
        test::Until([] { return false; }, 100);
        shows(there);
        // By a menu of the mouse it comes without any key, and in a box that lacks the focus.
        real->WriteText(wxString::FromUTF8("\xC3\xBC"));
        EXPECT_TRUE(test::Until([&] { return box.Text() != there; }));
        shows(box.Text());
        EXPECT_FALSE(grid.HasFocus());
    });
}

}  // namespace
