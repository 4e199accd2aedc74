// What is typed at a real keyboard arrives as it was typed, or is refused whole: every character
// of several layouts, in every kind of field that takes text.
#include "tests/gui/keyboard.h"

#include <gtest/gtest.h>
#include <wx/clipbrd.h>
#include <wx/textctrl.h>

#include "app/sys_man.h"
#include "directories/create_dir.h"
#include "materiallist/edit_material_list.h"
#include "materialtypes/add_material_types.h"
#include "materialtypes/edit_material_types.h"
#include "process/add_process.h"
#include "process/process_defaults.h"
#include "process/thickness_data.h"
#include "tests/gui/person.h"
#include "tests/materiallist/material_list_fixture.h"
#include "text/code_page.h"
#include "views/screen.h"

namespace {

std::string Utf8(std::u32string_view characters) {
    wxString text;
    for (const char32_t character : characters) text += wxUniChar(character);
    return text.ToStdString(wxConvUTF8);
}

class AtTheKeyboard : public ::testing::Test {
  protected:
    AtTheKeyboard() {
        files.Load(materiallist::kExistingDirectory,
                   test::ListFile({{"MS", "PLASMA", "10"}, {"SS", "Oxy Fuel", "12.5"}}));
        auto& table = process::TheProcesses();
        table.ProcessCount = process::Shared().CurrentProcess = 1;
        table.Process(1).Name = "Plasma";
        table.Process(1).ThicknessCount = 2;
        table.Process(1).Row(1) = {2, 1, 1, 1, 1};
    }
    ~AtTheKeyboard() override { test::UseLayout("us"); }

    // Types all characters of all layouts with this field of the form as the current one, a few at
    // a time after `fresh`, and looks at what has become of them. Where all are refused the text
    // stays that was there.
    void TypeAll(views::Form& form, const std::function<void()>& fresh,
                 const std::function<std::string()>& text, bool (*accepted)(char)) {
        test::WorkIn(form, [&] {
            for (const char* layout : {"us", "de", "fr", "gr", "pl"}) {
                SCOPED_TRACE(layout);
                test::UseLayout(layout);
                const std::u32string all = test::LayoutCharacters();
                ASSERT_GE(all.size(), 90u);
                for (std::size_t at = 0; at < all.size() && !HasFailure(); at += kAtOnce) {
                    fresh();
                    const std::string there = text();
                    std::string expected;
                    for (const char32_t character : all.substr(at, kAtOnce)) {
                        test::TypeCharacter(character);
                        const auto byte = text::FromUnicode(character);
                        if (byte && accepted(*byte)) expected += *byte;
                    }
                    if (expected.empty()) expected = there;
                    EXPECT_TRUE(test::Until([&] { return text() == expected; }))
                        << text::ToUtf8(text()) << "\nof " << Utf8(all.substr(at, kAtOnce));
                    EXPECT_EQ(test::Differences(form), "");
                }
                characters += static_cast<int>(all.size());
#ifdef _WIN32
                break;
#endif
            }
            form.Dismiss();
        });
        RecordProperty("characters", characters);
    }
    template <class Box>
    void TypeAllInto(views::Form& form, Box& box) {
        TypeAll(
            form, [&] { box.SetFocus(), box.SetText("?"), box.SelectAll(); },
            [&] { return box.Text(); }, [](char) { return true; });
    }
    // Into the cell in the first column, which is left and entered again each time.
    void TypeAllIntoCell(views::Form& form, views::Grid& grid, bool (*accepted)(char)) {
        TypeAll(
            form, [] { test::Key(WXK_RIGHT), test::Key(WXK_LEFT); },
            [&] { return grid.CurrentText(); }, accepted);
    }

    static constexpr std::size_t kAtOnce = 12;
    test::MaterialListFiles files;
    int characters = 0;
};

TEST_F(AtTheKeyboard, ACellOfTheMaterialTypes) {
    materialtypes::FrmEditMaterialTypes form;
    TypeAllIntoCell(form, form.grdMaterialTypes, [](char c) { return c >= 32 && c <= 126; });
}

TEST_F(AtTheKeyboard, TheEditBoxOfTheMaterialTypes) {
    materialtypes::FrmEditMaterialTypes form;
    TypeAllInto(form, form.txtEditData);
}

TEST_F(AtTheKeyboard, TheNumberBoxOfTheThicknesses) {
    process::FrmThicknessData form;
    TypeAllInto(form, form.txtEditData);
}

TEST_F(AtTheKeyboard, ACellOfTheMaterialList) {
    materiallist::FrmEditMaterialList form;
    TypeAllIntoCell(form, form.grdMaterialList,
                    [](char c) { return text::IsPrintableChar({&c, 1}); });
}

TEST_F(AtTheKeyboard, TheTypesOfTheMaterialList) {
    materiallist::FrmEditMaterialList form;
    TypeAllInto(form, form.cboEditDataType);
}

TEST_F(AtTheKeyboard, TheProcessesOfTheMaterialList) {
    materiallist::FrmEditMaterialList form;
    TypeAll(
        form,
        [&] {
            if (form.grdMaterialList.HasFocus()) test::Key(WXK_RIGHT);
            form.cboEditDataProcess.SetFocus();
            form.cboEditDataProcess.SetText("?");
            form.cboEditDataProcess.SelectAll();
        },
        [&] { return form.cboEditDataProcess.Text(); }, [](char) { return true; });
}

TEST_F(AtTheKeyboard, TheNameOfANewProcess) {
    process::FrmProcessDefaults owner;
    process::FrmAddProcess form(owner);
    TypeAllInto(form, form.txtNewProcessName);
}

TEST_F(AtTheKeyboard, TheNameOfANewDirectory) {
    app::SysMan main;
    directories::CreateDir form(main.Area(), [](const std::string&) {});
    TypeAllInto(form, form.txtDirName);
}

TEST_F(AtTheKeyboard, OtherWaysToType) {
    materialtypes::FrmEditMaterialTypes form;
    const auto& grid = form.grdMaterialTypes;
    test::WorkIn(form, [&] {
#ifndef _WIN32
        test::UseLayout("de");
        test::PressNamed("Caps_Lock");
        test::TypeCharacter(U'a');
        test::PressNamed("Caps_Lock");
        test::PressNamed("Num_Lock");
        for (const char* key : {"KP_1", "KP_Delete", "KP_Subtract"}) test::PressNamed(key);
        test::PressNamed("Num_Lock");
        EXPECT_TRUE(test::Until([&] { return grid.CurrentText() == "A1,-"; }))
            << grid.CurrentText();
        test::PressNamed("KP_Right");  // without Num Lock a key that moves
        test::Key(WXK_LEFT);
        form.txtEditData.SetFocus();
        form.txtEditData.SetText("");
        for (const char* dead : {"dead_acute", "dead_circumflex"}) {
            test::PressNamed(dead);
            test::TypeCharacter(U'e');
        }
        EXPECT_TRUE(test::Until([&] { return form.txtEditData.Text() == "\xE9\xEA"; }))
            << text::ToUtf8(form.txtEditData.Text());
        test::UseLayout("us");
#endif
        // Held with Alt or the Windows key it is no typing: the text and what is selected stay.
        form.txtEditData.SetFocus();
        form.txtEditData.SetText("abc");
        form.txtEditData.Select(1, 1);
        for (const int held : {test::kAltKey, test::kWindowsKey}) {
            test::PressWith(held, U'x');
            test::PressWith(held, U'7');
            test::Until([] { return false; }, 100);
            EXPECT_EQ(form.txtEditData.Text(), "abc");
            EXPECT_EQ(form.txtEditData.SelLength(), 1u);
        }
        test::Key('X', wxMOD_CONTROL);
        EXPECT_EQ(grid.CurrentText(), "ac");
        test::Key('V', wxMOD_CONTROL);
        test::Key('V', wxMOD_CONTROL);
        EXPECT_EQ(grid.CurrentText(), "abbc");
        test::Key('A', wxMOD_CONTROL);
        test::Key('C', wxMOD_CONTROL);
        test::Key(WXK_END);
        test::Key('V', wxMOD_CONTROL);
        EXPECT_EQ(grid.CurrentText(), "abbcabbc");
        test::Key('Z', wxMOD_CONTROL);  // undone where the platform does that, and shown so
        EXPECT_EQ(test::Differences(form), "");
        EXPECT_EQ(grid.CurrentText(), form.txtEditData.Text());
        // Into a grid the same keys type nothing.
        form.grdMaterialTypes.SetFocus();
        for (const char key : {'A', 'C', 'V', 'X', 'Z'}) test::Key(key, wxMOD_CONTROL);
        for (const int held : {test::kAltKey, test::kWindowsKey}) test::PressWith(held, U'7');
        test::Until([] { return false; }, 100);
        EXPECT_EQ(grid.CurrentText(), form.txtEditData.Text());
        EXPECT_EQ(test::Differences(form), "");
        form.Dismiss();
    });
}

}  // namespace
