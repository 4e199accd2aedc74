// The material list window in a real window, worked by mouse and keyboard through the platform.
#include <wx/combobox.h>
#include <wx/grid.h>
#include <wx/textctrl.h>

#include "materiallist/edit_material_list.h"
#include "tests/gui/person.h"
#include "tests/materiallist/material_list_fixture.h"

namespace {

using materiallist::FrmEditMaterialList;

const std::string kTwo = test::ListFile({{"MS", "PLASMA", "10"}, {"SS", "Oxy Fuel", "12.5"}});

class MaterialListInAWindow : public ::testing::Test {
  protected:
    // Opens the list of the directory, does this in it, closes it with Alt+C and saves it.
    void EditAndSave(const std::function<void()>& steps) {
        files.Load(materiallist::kExistingDirectory, kTwo);
        test::WorkIn(window, [&] {
            steps();
            test::AnswerNextBox(true);
            test::Key('C', wxMOD_ALT);
            EXPECT_TRUE(test::Until([&] { return !window.IsOpen(); }));
        });
    }
    void ClickCell(int row, int column, bool twice = false) {
        test::ClickCell(window.grdMaterialList, row, column, twice);
    }
    // The left or the right one of the arrows.
    void ClickArrow(bool up) {
        test::ClickAt([=, this] {
            wxWindow* real = test::RealOf(window.spinButton);
            const wxSize size = real->GetSize();
            return real->ClientToScreen(wxPoint(up ? size.x * 3 / 4 : size.x / 4, size.y / 2));
        });
    }
    test::MaterialListFiles files;
    FrmEditMaterialList window;
};

TEST_F(MaterialListInAWindow, AProcessIsChangedInPlace) {
    EditAndSave([&] {
        EXPECT_TRUE(window.grdMaterialList.HasFocus());
        EXPECT_FALSE(test::RealOf(window.cboEditDataProcess)->IsShown());
        test::Key(WXK_RIGHT);
        EXPECT_TRUE(test::Until(
            [&] { return test::RealOf(window.cboEditDataProcess)->IsShownOnScreen(); }));
        test::Click(window.cboEditDataProcess);
        EXPECT_TRUE(window.cboEditDataProcess.HasFocus());
        window.cboEditDataProcess.SelectAll();
        test::Type("wa");
        EXPECT_EQ(test::EntryText(1), "MS|wa|10");
        test::Key(WXK_RETURN);
        EXPECT_TRUE(window.grdMaterialList.HasFocus());
        EXPECT_EQ(window.grdMaterialList.Row(), 2);
        auto* combo = static_cast<wxComboBox*>(test::RealOf(window.cboEditDataProcess));
        EXPECT_EQ(combo->GetValue(), "Oxy Fuel");
    });
    EXPECT_EQ(files.drives.Read(files.path),
              test::ListFile({{"MS", "WATER", "0"}, {"SS", "Oxy Fuel", "12.5"}}));
}

TEST_F(MaterialListInAWindow, ACodeIsPickedFromTheList) {
    EditAndSave([&] {
        test::Click(window.cboEditDataType);
        EXPECT_FALSE(materiallist::Shared().MaterialListChanged);
        test::Key(WXK_DOWN);  // to the first entry or, by platform, the one behind the text
        if (window.cboEditDataType.Text() == "MS") test::Key(WXK_DOWN);
        EXPECT_TRUE(test::Until([&] { return window.cboEditDataType.Text() == "Ss316"; }));
        EXPECT_EQ(test::EntryText(1), "Ss316|PLASMA|10");
        ClickCell(2, 1);
        EXPECT_EQ(window.grdMaterialList.Text(1, 1), "Ss316");
        EXPECT_EQ(window.cboEditDataType.Text(), "SS");
    });
    EXPECT_EQ(files.drives.Read(files.path),
              test::ListFile({{"Ss316", "PLASMA", "10"}, {"SS", "Oxy Fuel", "12.5"}}));
}

TEST_F(MaterialListInAWindow, TypingIntoTheGridCommitsOnEnter) {
    EditAndSave([&] {
        test::Key('s');
        test::Key(WXK_RETURN);
        EXPECT_EQ(test::EntryText(1), "Ss316|PLASMA|10");
        EXPECT_EQ(window.grdMaterialList.Row(), 2);
        test::Type("wear");
        test::Key(WXK_SPACE);
        test::Key('4');
        EXPECT_EQ(test::EntryText(2), "wear 4|Oxy Fuel|12.5");
        test::Key(WXK_TAB);
        EXPECT_EQ(test::EntryText(2), "Wear 400|Oxy Fuel|12.5");
        test::Key(WXK_TAB);
        test::Type("9.75");
        test::Key(WXK_BACK);
        EXPECT_EQ(window.grdMaterialList.Column(), 3);
    });
    EXPECT_EQ(files.drives.Read(files.path),
              test::ListFile({{"Ss316", "PLASMA", "10"}, {"Wear 400", "Oxy Fuel", "9.7"}}));
}

TEST_F(MaterialListInAWindow, TheThicknessIsSteppedAndTyped) {
    EditAndSave([&] {
        ClickCell(1, 3);
        EXPECT_TRUE(test::Until([&] { return test::RealOf(window.spinButton)->IsShown(); }));
        ClickArrow(true);
        ClickArrow(true);
        ClickArrow(false);
        EXPECT_EQ(test::EntryText(1), "MS|PLASMA|11");
        EXPECT_TRUE(window.spinButton.HasFocus());
        test::Key(WXK_UP);
        EXPECT_EQ(test::EntryText(1), "MS|PLASMA|12");
        test::Click(window.txtSpinText);
        window.txtSpinText.SelectAll();
        test::Type("99");
        test::Key(WXK_DOWN);
        EXPECT_EQ(test::EntryText(1), "MS|PLASMA|25");
        EXPECT_EQ(window.grdMaterialList.Row(), 2);
        EXPECT_TRUE(window.grdMaterialList.HasFocus());
    });
    EXPECT_EQ(files.drives.Read(files.path),
              test::ListFile({{"MS", "PLASMA", "25"}, {"SS", "Oxy Fuel", "12.5"}}));
}

TEST_F(MaterialListInAWindow, ARowIsCopiedAndPasted) {
    EditAndSave([&] {
        ClickCell(2, 1, true);
        EXPECT_TRUE(window.cmdCopy.Enabled());
        test::Click(window.cmdCopy);
        test::Click(window.cmdPaste);
        EXPECT_EQ(window.grdMaterialList.Row(), 3);
        auto* grid = static_cast<wxGrid*>(test::RealOf(window.grdMaterialList));
        EXPECT_TRUE(test::Until([&] { return grid->GetNumberRows() == 3; }));
        EXPECT_EQ(grid->GetCellValue(2, 1), "Oxy Fuel");
    });
    EXPECT_EQ(files.drives.Read(files.path), test::ListFile({{"MS", "PLASMA", "10"},
                                                             {"SS", "Oxy Fuel", "12.5"},
                                                             {"SS", "Oxy Fuel", "12.5"}}));
}

TEST_F(MaterialListInAWindow, ARowIsChosenAndTheGridLeftByKeyboardToo) {
    EditAndSave([&] {
        const views::Grid::Block row{2, 1, 2, 3};
        ClickCell(2, 0, true);  // its number
        EXPECT_TRUE(window.cmdCopy.Enabled());
        EXPECT_EQ(window.grdMaterialList.Selection(), row);
        test::Key(WXK_HOME);  // the row is not selected any more
        EXPECT_FALSE(window.cmdCopy.Enabled());
        EXPECT_FALSE(window.cmdDelete.Enabled());
        test::Key(WXK_SPACE, wxMOD_CONTROL);
        EXPECT_TRUE(window.cmdCopy.Enabled());
        EXPECT_TRUE(window.cmdDelete.Enabled());
        EXPECT_EQ(window.grdMaterialList.Selection(), row);
        for (const views::Control* next : std::initializer_list<const views::Control*>{
                 &window.cboEditDataType, &window.cmdAdd, &window.grdMaterialList}) {
            test::Key(WXK_F6);
            EXPECT_TRUE(next->HasFocus()) << next->Name();
        }
        test::Key(WXK_F6, wxMOD_SHIFT);
        EXPECT_TRUE(window.cmdAdd.HasFocus());
        ClickCell(2, 3);
        test::Key(WXK_F6);
        test::Type("999");
        test::Key(WXK_TAB);  // from the last cell it leads to the same one
        // Its type was entered on the way: the first code that begins with SS.
        EXPECT_EQ(test::EntryText(2), "Ss316|Oxy Fuel|150");
        ClickCell(1, 1);
        test::Type("wea");  // not left before the window is
        EXPECT_EQ(test::Differences(window), "");
    });
    EXPECT_EQ(files.drives.Read(files.path),
              test::ListFile({{"Wear 400", "PLASMA", "10"}, {"Ss316", "Oxy Fuel", "150"}}));
}

TEST_F(MaterialListInAWindow, AnOptionAloneChangesOnlyItsKeys) {
    const std::string odd = kTwo + "; not as it is written\r\n";
    EditAndSave([&] {
        files.drives.Write(files.path, odd);
        test::Click(window.chkTracePlate);
        EXPECT_TRUE(window.chkTracePlate.Value());
    });
    EXPECT_EQ(files.drives.Read(files.path), odd);
    EXPECT_EQ(files.drives.Read(test::kUserProfile),
              "; kept\r\n[Nest]\r\nAllowKerfProg=1\r\nother=x\r\nPrePiercingThickness=0.5\r\n"
              "NestCheck=0\r\nTracePlateOutline=1\r\nPrePiercingEnabled=0\r\n");
}

}  // namespace
