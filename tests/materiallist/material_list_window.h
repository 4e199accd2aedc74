// A person in the material list window, without a real one.
#pragma once

#include "materiallist/edit_material_list.h"
#include "tests/materiallist/material_list_fixture.h"
#include "tests/support/scripted_screen.h"
#include "views/application.h"

namespace test {

inline const std::string kSaveQuestion =
    Box("Save Material List file", "         Save Changes ?", "Yes/No", "none");
// Three entries, the first two within their ranges, the third of a process that is not there.
inline const std::string kThree =
    ListFile({{"MS", "PLASMA", "10"}, {"SS", "Oxy Fuel", "12.5"}, {"XX", "gone", "7"}});

class MaterialListWindow : public ::testing::Test {
  protected:
    // Opens the window on a list, does this in it and closes it by its frame if it is still open.
    void Edit(int source, const std::string& list,
              const std::function<void(materiallist::FrmEditMaterialList&, Keyboard&)>& steps) {
        files.Load(static_cast<materiallist::ListSource>(source), list);
        materiallist::FrmEditMaterialList window;
        screen.windows.push_back([&](views::Form& form) {
            Keyboard keyboard(form);
            steps(window, keyboard);
        });
        views::ShowModal(window);
    }
    // The same, leaving it with No to the question.
    void EditAndDrop(
        int source, const std::string& list,
        const std::function<void(materiallist::FrmEditMaterialList&, Keyboard&)>& steps) {
        screen.answers.push_back(views::Answer::kNo);
        Edit(source, list, steps);
        EXPECT_EQ(screen.TakeLog(), std::vector{kSaveQuestion});
    }
    // The texts of a grid row: "1|MS|PLASMA|10".
    static std::string Row(const materiallist::FrmEditMaterialList& window, int row) {
        std::string text = window.grdMaterialList.Text(row, 0);
        for (int column = 1; column < 4; ++column) {
            text += "|" + window.grdMaterialList.Text(row, column);
        }
        return text;
    }
    // The enabled list commands by their first letters.
    static std::string Enabled(const materiallist::FrmEditMaterialList& window) {
        std::string letters;
        for (const auto* button :
             {&window.cmdAdd, &window.cmdCopy, &window.cmdPaste, &window.cmdDelete}) {
            if (button->Enabled()) letters += button->Caption()[1];
        }
        return letters;
    }
    // The visible editors by a letter each.
    static std::string Editors(const materiallist::FrmEditMaterialList& window) {
        return std::string(window.cboEditDataType.Visible() ? "T" : "") +
               (window.cboEditDataProcess.Visible() ? "P" : "") +
               (window.txtSpinText.Visible() ? "X" : "") + (window.spinButton.Visible() ? "S" : "");
    }
    static std::string Cell(const materiallist::FrmEditMaterialList& window) {
        return std::to_string(window.grdMaterialList.Row()) + "," +
               std::to_string(window.grdMaterialList.Column());
    }
    static std::string ManyEntries(int count) {
        return ListFile({static_cast<std::size_t>(count), {"MS", "PLASMA", "5"}});
    }
    MaterialListFiles files;
    ScriptedScreen screen;
};

}  // namespace test
