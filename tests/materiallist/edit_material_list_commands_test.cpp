// The commands of the material list window, the nesting options, and what is saved on closing.
#include "tests/materiallist/material_list_window.h"

namespace {

using materiallist::FrmEditMaterialList;
using materiallist::Shared;
using materiallist::TheMaterialList;
using test::kSaveQuestion;
using test::kThree;
using views::Answer;
using Log = std::vector<std::string>;

class MaterialListCommands : public test::MaterialListWindow {
  protected:
    static std::string Question(int row) {
        return test::Box("Deleting Processing data",
                         "     Delete Data Index " + std::to_string(row) + "\r      Are You Sure ?",
                         "Yes/No", "none");
    }
};

TEST_F(MaterialListCommands, ADoubleClickSelectsTheRowAndAClickReleasesIt) {
    Edit(3, kThree, [](FrmEditMaterialList& window, auto&) {
        views::Grid& grid = window.grdMaterialList;
        grid.DoubleClickCell(2, 2);
        EXPECT_EQ(grid.Selection(), (views::Grid::Block{2, 1, 2, 3}));
        EXPECT_EQ(Enabled(window), "ACD");
        grid.ClickCell(2, 2);
        EXPECT_EQ(grid.Selection(), (views::Grid::Block{2, 2, 2, 2}));
        EXPECT_EQ(Enabled(window), "A");
        grid.DoubleClickCell(1, 3);
        grid.ClickCell(3, 0);  // the index
        EXPECT_EQ(Cell(window), "3,1");
        EXPECT_EQ(Enabled(window), "A");
        EXPECT_TRUE(grid.Highlight());
        grid.onMouseDown();
        EXPECT_FALSE(grid.Highlight());
        grid.onMouseUp();
        EXPECT_TRUE(grid.Highlight());
    });
}

TEST_F(MaterialListCommands, PasteAppendsWhatWasCopied) {
    EditAndDrop(3, kThree, [](FrmEditMaterialList& window, auto&) {
        window.grdMaterialList.DoubleClickCell(2, 2);
        window.cmdCopy.Press();
        EXPECT_FALSE(Shared().MaterialListChanged);
        EXPECT_EQ(Enabled(window), "ACPD");
        window.grdMaterialList.ClickCell(1, 3);
        window.cmdPaste.Press();
        EXPECT_EQ(Cell(window), "4,1");
        EXPECT_EQ(Enabled(window), "AP");
        EXPECT_TRUE(window.grdMaterialList.HasFocus());
        window.cmdPaste.Press();
        EXPECT_EQ(Row(window, 5), "5|SS|Oxy Fuel|12.5");
        EXPECT_EQ(test::EntryText(5), "SS|Oxy Fuel|12.5");
        EXPECT_EQ(window.grdMaterialList.Rows(), 6);
    });
    EditAndDrop(1, kThree, [](FrmEditMaterialList& window, auto&) {
        window.grdMaterialList.DoubleClickCell(2, 2);
        window.cmdCopy.Press();
        window.cmdPaste.Press();
        EXPECT_EQ(Row(window, 4), "4|SS|Oxy Fuel|");
        EXPECT_EQ(test::EntryText(4), "SS|Oxy Fuel|0");
    });
}

TEST_F(MaterialListCommands, CopyRefusesASingleEntryAndSwitchesPasteOff) {
    screen.answers = {Answer::kYes, Answer::kYes, Answer::kNo};
    Edit(3, kThree, [](FrmEditMaterialList& window, auto&) {
        views::Grid& grid = window.grdMaterialList;
        grid.DoubleClickCell(1, 1);
        window.cmdCopy.Press();
        window.cmdDelete.Press();
        grid.DoubleClickCell(1, 1);
        window.cmdDelete.Press();
        EXPECT_EQ(Enabled(window), "AP");
        grid.DoubleClickCell(1, 1);
        window.cmdCopy.Press();
        EXPECT_EQ(Enabled(window), "AD");
    });
    EXPECT_EQ(screen.TakeLog(), (Log{Question(1), Question(1), kSaveQuestion}));
}

TEST_F(MaterialListCommands, DeleteAsksAndNumbersAnew) {
    const std::string five = test::ListFile({{"MS", "PLASMA", "1"},
                                             {"SS", "PLASMA", "2"},
                                             {"MS", "PLASMA", "3"},
                                             {"SS", "PLASMA", "4"},
                                             {"SS", "PLASMA", "5"}});
    screen.answers = {Answer::kNo, Answer::kYes, Answer::kYes, Answer::kNo};
    Edit(3, five, [&](FrmEditMaterialList& window, auto&) {
        views::Grid& grid = window.grdMaterialList;
        grid.DoubleClickCell(5, 2);
        window.cmdDelete.Press();  // No
        EXPECT_EQ(TheMaterialList().EntryCount, 5);
        EXPECT_FALSE(Shared().MaterialListChanged);
        EXPECT_EQ(Enabled(window), "AD");  // Copy went off with the question
        EXPECT_FALSE(grid.Highlight());
        window.cmdDelete.Press();
        EXPECT_EQ(Cell(window), "4,2");  // the last row now
        EXPECT_EQ(Enabled(window), "A");
        EXPECT_TRUE(grid.HasFocus());
        EXPECT_TRUE(grid.Highlight());
        grid.DoubleClickCell(2, 3);
        window.cmdDelete.Press();
        EXPECT_EQ(Cell(window), "2,3");
        EXPECT_EQ(Row(window, 2), "2|MS|PLASMA|3");
        EXPECT_EQ(Row(window, 3), "3|SS|PLASMA|4");
        EXPECT_EQ(test::EntryText(2), "MS|PLASMA|3");
        EXPECT_EQ(grid.Rows(), 4);
        window.spinButton.Up();  // steps the entry that is there now
        EXPECT_EQ(test::EntryText(2), "MS|PLASMA|4");
    });
    EXPECT_EQ(screen.TakeLog(), (Log{Question(5), Question(5), Question(2), kSaveQuestion}));
}

TEST_F(MaterialListCommands, APendingEditGoesWithItsRow) {
    const std::string four = test::ListFile({{"MS", "PLASMA", "1"},
                                             {"SS", "PLASMA", "2"},
                                             {"XX", "PLASMA", "3"},
                                             {"YY", "PLASMA", "4"}});
    screen.answers = {Answer::kYes, Answer::kYes, Answer::kNo};
    Edit(3, four, [&](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        views::Grid& grid = window.grdMaterialList;
        grid.DoubleClickCell(2, 1);
        keyboard.Type("q");
        window.cmdDelete.Press();
        EXPECT_EQ(test::EntryText(2), "XX|PLASMA|3");  // its type is not taken for the one typed
        grid.DoubleClickCell(2, 1);
        keyboard.Type("w");
        grid.DoubleClickCell(1, 2);
        window.cmdDelete.Press();
        EXPECT_EQ(test::EntryText(1), "Wear 400|PLASMA|3");  // moved up, and committed there
        EXPECT_EQ(test::EntryText(2), "YY|PLASMA|4");
    });
    screen.TakeLog();
}

TEST_F(MaterialListCommands, DeletingTheOnlyEntryLeavesABlankRow) {
    screen.answers = {Answer::kYes, Answer::kYes};
    Edit(3, ManyEntries(1), [](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        window.grdMaterialList.DoubleClickCell(1, 2);
        window.cmdDelete.Press();
        EXPECT_EQ(TheMaterialList().EntryCount, 0);
        EXPECT_EQ(window.grdMaterialList.Rows(), 2);
        EXPECT_EQ(Row(window, 1), "|||");
        EXPECT_EQ(Editors(window), "");
        EXPECT_EQ(Enabled(window), "A");
        window.cmdDelete.Click();  // nothing there to ask about
        keyboard.Press(views::kKeyTab);
        keyboard.Press(views::kKeyDown);
        EXPECT_EQ(Row(window, 1), "|||");
    });
    EXPECT_EQ(files.drives.Read(files.path), test::kListHeader);
    screen.TakeLog();
}

TEST_F(MaterialListCommands, TwoHundredEntriesAreTheMost) {
    Edit(3, ManyEntries(0),
         [](FrmEditMaterialList& window, auto&) { EXPECT_EQ(window.grdMaterialList.Rows(), 2); });
    screen.answers = {Answer::kYes, Answer::kNo};
    Edit(3, ManyEntries(199), [](FrmEditMaterialList& window, auto&) {
        EXPECT_EQ(window.grdMaterialList.Rows(), 200);
        window.grdMaterialList.DoubleClickCell(199, 1);
        window.cmdCopy.Press();
        EXPECT_EQ(Enabled(window), "ACPD");
        window.cmdAdd.Press();
        EXPECT_EQ(TheMaterialList().EntryCount, 200);
        EXPECT_EQ(Enabled(window), "A");  // no Paste beyond the capacity
        window.cmdAdd.Press();
        EXPECT_EQ(TheMaterialList().EntryCount, 200);
        EXPECT_EQ(Enabled(window), "");
        EXPECT_TRUE(window.grdMaterialList.HasFocus());
        window.grdMaterialList.DoubleClickCell(7, 1);
        EXPECT_EQ(Enabled(window), "D");
        window.cmdDelete.Press();
        EXPECT_EQ(Enabled(window), "A");
        window.grdMaterialList.DoubleClickCell(7, 1);
        window.cmdCopy.Press();
        window.cmdPaste.Press();
        EXPECT_EQ(Row(window, 200), "200|MS|PLASMA|5");
        EXPECT_EQ(Enabled(window), "");
    });
    EXPECT_EQ(screen.TakeLog(), (Log{Question(7), kSaveQuestion}));
}

TEST_F(MaterialListCommands, TheCurrentRowStaysInView) {
    Edit(3, ManyEntries(30), [](FrmEditMaterialList& window, auto&) {
        views::Grid& grid = window.grdMaterialList;
        grid.Scrolled(1, 8);
        grid.SetCell(5, 1);
        EXPECT_EQ(grid.TopRow(), 1);
        grid.SetCell(6, 1);  // five rows below the top one
        EXPECT_EQ(grid.TopRow(), 6);
        grid.SetCell(5, 1);
        EXPECT_EQ(grid.TopRow(), 5);
    });
    Edit(3, ManyEntries(5), [](FrmEditMaterialList& window, auto&) {
        window.grdMaterialList.Scrolled(3, 2);
        window.grdMaterialList.SetCell(2, 1);
        EXPECT_EQ(window.grdMaterialList.TopRow(), 3);  // few rows need no scrolling
    });
}

TEST_F(MaterialListCommands, AListThatCannotBeWrittenStaysOpenAndIntact) {
    files.drives.Write(test::kJob + "\\MATERIAL.DAT", kThree);
    screen.answers = {Answer::kYes, Answer::kYes};
    Edit(3, kThree, [&](FrmEditMaterialList& window, auto&) {
        window.cboEditDataType.Choose(0);
        window.cmdAdd.Press();
        window.chkTracePlate.Toggle();
        files.drives.SetReadOnly(files.path, true);
        window.cmdClose.Press();
        EXPECT_TRUE(window.IsOpen());
        const Log log = screen.TakeLog();
        ASSERT_EQ(log.size(), 2u);
        EXPECT_EQ(log[0], kSaveQuestion);
        EXPECT_TRUE(
            log[1].starts_with("Save Material List file|" + test::kJob + "\\material.dat: "))
            << log[1];
        EXPECT_TRUE(log[1].ends_with("|OK|exclamation"));
        EXPECT_EQ(files.drives.Read(files.path), kThree);
        EXPECT_EQ(TheMaterialList().EntryCount, 4);
        EXPECT_TRUE(Shared().MaterialListChanged && Shared().NestOptionsChanged);
        files.drives.SetReadOnly(files.path, false);
    });
    EXPECT_EQ(screen.TakeLog(), Log{kSaveQuestion});
    EXPECT_EQ(files.drives.Read(files.path), test::ListFile({{"MS", "PLASMA", "10"},
                                                             {"SS", "Oxy Fuel", "12.5"},
                                                             {"XX", "gone", "7"},
                                                             {"MS", "PLASMA", "0"}}));
}

TEST_F(MaterialListCommands, OptionsAreSavedByThemselves) {
    const std::string profile = files.drives.Read(test::kUserProfile);
    Edit(1, kThree, [](FrmEditMaterialList& window, auto&) {
        EXPECT_TRUE(window.chkAllowKerfCompensated.Value());
        EXPECT_FALSE(window.chkNestClearanceCheck.Value());
        EXPECT_FALSE(window.chkPrePierceEnabled.Value());
        EXPECT_EQ(window.txtMinPlateThickness.Text(), "0.5");
        EXPECT_FALSE(window.txtMinPlateThickness.Enabled());
        EXPECT_FALSE(Shared().NestOptionsChanged);
    });
    EditAndDrop(1, kThree, [](FrmEditMaterialList& window, auto&) {
        window.chkNestClearanceCheck.Toggle();
        EXPECT_TRUE(Shared().NestOptionsChanged);
    });
    EXPECT_EQ(files.drives.Read(test::kUserProfile), profile);
    const std::string odd = kThree + "; not as it is written\r\n";
    screen.answers = {Answer::kYes};
    Edit(1, odd, [](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        window.chkAllowKerfCompensated.Toggle();
        window.chkPrePierceEnabled.Toggle();
        window.txtMinPlateThickness.SetFocus();
        window.txtMinPlateThickness.SelectAll();
        keyboard.Type("12.5mm");
        window.chkPrePierceEnabled.Toggle();
        EXPECT_FALSE(window.txtMinPlateThickness.Enabled());
    });
    EXPECT_EQ(files.drives.Read(files.path), odd);
    EXPECT_EQ(files.drives.Read(test::kUserProfile),
              "; kept\r\n[Nest]\r\nAllowKerfProg=0\r\nother=x\r\nPrePiercingThickness=12.5\r\n"
              "NestCheck=0\r\nTracePlateOutline=0\r\nPrePiercingEnabled=0\r\n");
    // A profile that cannot be written is silently not updated.
    files.drives.SetReadOnly(test::kUserProfile, true);
    screen.answers = {Answer::kYes};
    screen.TakeLog();
    Edit(1, kThree, [](FrmEditMaterialList& window, auto&) { window.chkTracePlate.Toggle(); });
    EXPECT_EQ(screen.TakeLog(), Log{kSaveQuestion});
}

}  // namespace
