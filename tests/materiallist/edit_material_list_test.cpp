// The material list window: what each command, key and click does to the table, the grid, the
// buttons and the flags.
#include "tests/materiallist/material_list_window.h"

namespace {

using materiallist::FrmEditMaterialList;
using materiallist::Shared;
using views::Answer;
using Log = std::vector<std::string>;

using test::kSaveQuestion;
using test::kThree;

class EditMaterialList : public test::MaterialListWindow {};

TEST_F(EditMaterialList, TheSystemDefaultListHasNoThickness) {
    Edit(1, kThree, [](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        EXPECT_EQ(window.Caption(), "Edit c:\\tolvarin\\system\\material.dat List");
        EXPECT_EQ(Row(window, 0), "Index|Material Type Code|Process Name|Thickness (mm)");
        EXPECT_EQ(Row(window, 2), "2|SS|Oxy Fuel|");
        EXPECT_EQ(window.grdMaterialList.Rows(), 4);
        EXPECT_EQ(Enabled(window), "A");
        EXPECT_EQ(Editors(window), "T");
        EXPECT_TRUE(window.grdMaterialList.HasFocus());
        window.grdMaterialList.ClickCell(1, 3);
        EXPECT_EQ(Editors(window), "");
        EXPECT_FALSE(window.txtSpinText.Enabled());
        keyboard.Type("5");
        EXPECT_EQ(Row(window, 1), "1|MS|PLASMA|");
        EXPECT_EQ(test::EntryText(1), "MS|PLASMA|10");  // the table keeps what the file held
    });
    EXPECT_EQ(screen.TakeLog(), Log{});  // nothing was changed, nothing is asked
}

TEST_F(EditMaterialList, OpeningPullsThicknessesIntoTheRangesOfTheirProcesses) {
    Edit(3,
         test::ListFile({{"MS", "plasma ", "30"},   // rows up to 25
                         {"MS", "OXY FUEL", "-5"},  // rows from -2
                         {"MS", "WATER", "4"},      // no rows: nothing but 0
                         {"MS", "PLAS", "30"},      // no process of that name
                         {"MS", "PLASMA", "0.25"}}),
         [](FrmEditMaterialList& window, auto&) {
             EXPECT_EQ(window.Caption(), "Edit c:\\tolvarin\\user\\prod\\p10\\material.dat List");
             EXPECT_EQ(Row(window, 1), "1|MS|plasma|25");
             EXPECT_EQ(test::EntryText(1), "MS|plasma|25");
             EXPECT_EQ(Row(window, 2), "2|MS|OXY FUEL|0");  // no thickness is shown below 0
             EXPECT_EQ(test::EntryText(2), "MS|OXY FUEL|-2");
             EXPECT_EQ(Row(window, 3), "3|MS|WATER|0");
             EXPECT_EQ(Row(window, 4), "4|MS|PLAS|30");
             EXPECT_EQ(Row(window, 5), "5|MS|PLASMA|0.25");
             EXPECT_FALSE(Shared().MaterialListChanged);
         });
    EXPECT_EQ(screen.TakeLog(), Log{});
}

TEST_F(EditMaterialList, ANewDirectoryAsksForItsThicknessFirst) {
    screen.windows.push_back([](views::Form& prompt) {
        EXPECT_EQ(prompt.Name(), "frmEnterThickness");
        test::Keyboard(prompt).Type("30");
        test::Keyboard(prompt).Press(views::kKeyEnter);
    });
    screen.answers = {Answer::kYes};
    Edit(2, kThree, [](FrmEditMaterialList& window, auto&) {
        EXPECT_EQ(Row(window, 1), "1|MS|PLASMA|25");  // limited at once
        EXPECT_EQ(Row(window, 2), "2|SS|Oxy Fuel|30");
        EXPECT_TRUE(window.DeleteAllowed);
    });
    EXPECT_EQ(screen.TakeLog(), Log{kSaveQuestion});
    EXPECT_EQ(
        files.drives.Read(files.path),
        test::ListFile({{"MS", "PLASMA", "25"}, {"SS", "Oxy Fuel", "30"}, {"XX", "gone", "30"}}));
}

TEST_F(EditMaterialList, EntriesOfADirectoryInUseAreNotDeleted) {
    const auto deletable = [&](int source) {
        bool enabled = false;
        if (source == 2) screen.windows.push_back([](views::Form&) {});
        Edit(source, kThree, [&](FrmEditMaterialList& window, auto&) {
            window.grdMaterialList.DoubleClickCell(1, 1);
            enabled = window.cmdDelete.Enabled();
        });
        return enabled;
    };
    EXPECT_TRUE(deletable(3));  // no such directories
    files.drives.MakeDir(test::kJob + "\\COMP\\OLD");
    files.drives.MakeDir(test::kJob + "\\NEST");
    EXPECT_TRUE(deletable(3));  // directories only
    files.drives.Write(test::kJob + "\\NEST\\1.NST", "");
    EXPECT_FALSE(deletable(3));
    EXPECT_TRUE(deletable(2));
    std::filesystem::remove(files.drives.Path(test::kJob + "\\NEST\\1.NST"));
    files.drives.Write(test::kJob + "\\comp\\A.CMP", "");
    EXPECT_EQ(deletable(3), !files.drives.Exists(test::kJob + "\\COMP\\A.CMP"));
}

TEST_F(EditMaterialList, BeingInTheProcessIsAChangeBeingInTheTypeIsNot) {
    Edit(3, kThree, [](FrmEditMaterialList& window, auto&) {
        window.cboEditDataType.SetFocus();
        EXPECT_EQ(window.cboEditDataType.SelLength(), 2u);
        EXPECT_EQ(window.editor.EditState, 1);
        window.cmdClose.Press();
        EXPECT_FALSE(window.IsOpen());
    });
    EXPECT_EQ(screen.TakeLog(), Log{});
    EditAndDrop(3, kThree, [](FrmEditMaterialList& window, auto&) {
        window.grdMaterialList.ClickCell(2, 2);
        window.cboEditDataProcess.SetFocus();
        EXPECT_EQ(window.cboEditDataProcess.Text(), "Oxy Fuel");
    });
    EXPECT_EQ(files.drives.Read(files.path), kThree);
}

TEST_F(EditMaterialList, TheBeginningOfACodeIsEnough) {
    const auto committed = [&](const char* typed) {
        std::string code;
        EditAndDrop(3, kThree, [&](FrmEditMaterialList& window, test::Keyboard& keyboard) {
            const std::string left = *typed == '\b' ? "" : typed;
            keyboard.Type(typed);
            EXPECT_EQ(window.grdMaterialList.Text(1, 1), left);
            EXPECT_EQ(test::EntryText(1), left + "|PLASMA|10");
            keyboard.Press(views::kKeyEnter);
            EXPECT_EQ(Cell(window), "2,1");
            code = window.grdMaterialList.Text(1, 1);
            EXPECT_EQ(test::EntryText(1), code + "|PLASMA|10");
        });
        return code;
    };
    EXPECT_EQ(committed("s"), "Ss316");  // the first of two, in the spelling of the table
    EXPECT_EQ(committed("SS"), "Ss316");
    EXPECT_EQ(committed("wear 4"), "Wear 400");
    EXPECT_EQ(committed("x"), "MS");
    EXPECT_EQ(committed("ss316x"), "MS");  // longer than any code
    EXPECT_EQ(committed("\b"), "MS");
}

TEST_F(EditMaterialList, AnotherProcessLimitsTheThickness) {
    EditAndDrop(3, kThree, [](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        window.grdMaterialList.ClickCell(2, 2);
        window.cboEditDataProcess.SetFocus();
        keyboard.Type("wa");
        EXPECT_EQ(Row(window, 2), "2|SS|wa|12.5");
        keyboard.Press(views::kKeyEnter);
        EXPECT_EQ(Row(window, 2), "2|SS|WATER|0");
        EXPECT_EQ(test::EntryText(2), "SS|WATER|0");
        EXPECT_EQ(Cell(window), "3,2");
        EXPECT_TRUE(window.grdMaterialList.HasFocus());
        EXPECT_EQ(window.cboEditDataProcess.Text(), "gone");
        EXPECT_EQ(Row(window, 3), "3|XX|gone|7");  // moving on has touched nothing there
        keyboard.Press(views::kKeyUp);
        EXPECT_EQ(process::Shared().CurrentProcess, 1);  // "gone" became the first process
        EXPECT_EQ(Row(window, 3), "3|XX|PLASMA|7");
        EXPECT_EQ(Cell(window), "2,2");
        keyboard.Press(views::kKeyUp);
        EXPECT_EQ(process::Shared().CurrentProcess, 3);
    });
    Edit(3, kThree, [](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        window.grdMaterialList.ClickCell(3, 3);
        keyboard.Press(views::kKeyUp);
        EXPECT_EQ(process::Shared().CurrentProcess, 4);  // none of that name: their count + 1
        EXPECT_EQ(Row(window, 3), "3|XX|gone|7");
    });
}

TEST_F(EditMaterialList, EnterOnTheLastEntryCommitsInPlace) {
    EditAndDrop(3, kThree, [](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        window.grdMaterialList.ClickCell(3, 1);
        window.cboEditDataType.SetFocus();
        keyboard.Type("w");
        keyboard.Press(views::kKeyEnter);
        EXPECT_EQ(Cell(window), "3,1");
        EXPECT_EQ(Row(window, 3), "3|Wear 400|gone|7");
        EXPECT_EQ(window.cboEditDataType.Text(), "Wear 400");
    });
}

TEST_F(EditMaterialList, PickingFromTheListsGoesStraightIntoTheTable) {
    screen.answers = {Answer::kYes};
    Edit(3, kThree, [](FrmEditMaterialList& window, auto&) {
        EXPECT_EQ(window.cboEditDataType.Items(), (Log{"MS", "Ss316", "SS", "Wear 400"}));
        window.cboEditDataType.Choose(2);
        EXPECT_TRUE(Shared().MaterialListChanged);
        window.grdMaterialList.ClickCell(1, 2);
        EXPECT_EQ(Row(window, 1),
                  "1|Ss316|PLASMA|10");  // leaving it takes the first that begins so
        EXPECT_EQ(window.cboEditDataProcess.Items(), (Log{"PLASMA", "Oxy Fuel", "WATER"}));
        window.cboEditDataProcess.Choose(2);
        EXPECT_EQ(test::EntryText(1), "Ss316|WATER|10");
        window.grdMaterialList.ClickCell(1, 1);
        EXPECT_EQ(test::EntryText(1), "Ss316|WATER|0");
    });
    EXPECT_EQ(screen.TakeLog(), Log{kSaveQuestion});
    EXPECT_EQ(
        files.drives.Read(files.path),
        test::ListFile({{"Ss316", "WATER", "0"}, {"SS", "Oxy Fuel", "12.5"}, {"XX", "gone", "7"}}));
}

// A text pasted by mouse comes without any key; it is in the list and asked about all the same.
TEST_F(EditMaterialList, NoEditIsLostHoweverTheWindowIsClosed) {
    for (int way = 0; way < 3; ++way) {
        screen.answers = {Answer::kYes};
        Edit(3, kThree, [&](FrmEditMaterialList& window, test::Keyboard& keyboard) {
            window.cboEditDataType.SetFocus();
            window.cboEditDataType.Edited("wea", 3);
            EXPECT_TRUE(Shared().MaterialListChanged);
            if (way == 0) window.cmdClose.Press();
            if (way == 1) keyboard.Press('C', views::kAlt);
            if (way == 2) keyboard.Press(views::kKeyEscape);
            EXPECT_FALSE(window.IsOpen());
        });
        EXPECT_EQ(
            files.drives.Read(files.path),
            test::ListFile({{"Wear 400", "PLASMA", "10"},  // committed as when its cell is left
                            {"SS", "Oxy Fuel", "12.5"},
                            {"XX", "gone", "7"}}));
    }
    screen.answers = {Answer::kYes};
    Edit(3, kThree, [&](FrmEditMaterialList& window, auto&) {
        window.grdMaterialList.ClickCell(3, 3);
        window.txtSpinText.SetFocus();
        window.txtSpinText.Edited("8.5 mm", 6);
    });
    EXPECT_EQ(test::EntryText(3), "XX|gone|8.5");
    screen.TakeLog();
}

TEST_F(EditMaterialList, ATypedThicknessIsLimitedWhenTheCellIsLeft) {
    EditAndDrop(3, kThree, [](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        window.grdMaterialList.ClickCell(1, 3);
        EXPECT_EQ(Editors(window), "XS");
        window.txtSpinText.SetFocus();
        EXPECT_FALSE(Shared().MaterialListChanged);
        keyboard.Type("30");
        EXPECT_EQ(test::EntryText(1), "MS|PLASMA|30");
        window.spinButton.onGotFocus = [] { ADD_FAILURE() << "the focus goes to the grid"; };
        keyboard.Press(views::kKeyTab, views::kShift);
        EXPECT_EQ(Cell(window), "1,2");
        EXPECT_EQ(Row(window, 1), "1|MS|PLASMA|25");
        EXPECT_EQ(Editors(window), "P");
        EXPECT_TRUE(window.grdMaterialList.HasFocus());
        EXPECT_EQ(window.editor.EditState, 2);

        window.grdMaterialList.ClickCell(2, 3);
        window.txtSpinText.SetFocus();
        keyboard.Press(views::kKeyUp);
        EXPECT_EQ(Cell(window), "1,3");
        window.txtSpinText.SetFocus();
        keyboard.Press(views::kKeyDown);
        EXPECT_EQ(Cell(window), "2,3");
        window.txtSpinText.SetFocus();
        keyboard.Type("160");
        window.grdMaterialList.ClickCell(1, 3);
        EXPECT_EQ(Row(window, 2), "2|SS|Oxy Fuel|150");
        EXPECT_EQ(window.txtSpinText.Text(), "25");  // of the cell clicked, not of the one left
        EXPECT_EQ(test::EntryText(1), "MS|PLASMA|25");

        window.txtSpinText.SetFocus();
        keyboard.Type("123456789012345");
        EXPECT_EQ(window.txtSpinText.Text(), "12345678901235");  // cut before each key
        keyboard.Press(views::kKeyUp);                           // no row above: stays
        EXPECT_EQ(Cell(window), "1,3");
        window.grdMaterialList.ClickCell(1, 3);
        keyboard.Type("9x");  // into the cell itself, nothing is filtered
        EXPECT_EQ(test::EntryText(1), "MS|PLASMA|9");
        EXPECT_EQ(window.txtSpinText.Text(), "9x");
        keyboard.Press(views::kKeyDown);
        EXPECT_EQ(Row(window, 1), "1|MS|PLASMA|9");
        EXPECT_EQ(Cell(window), "2,3");
    });
}

TEST_F(EditMaterialList, TheArrowsStepWithinTheRange) {
    EditAndDrop(3, test::ListFile({{"MS", "PLASMA", "23.5"}, {"SS", "gone", "0.5"}}),
                [](FrmEditMaterialList& window, auto&) {
                    window.grdMaterialList.ClickCell(1, 3);
                    window.spinButton.Up();
                    EXPECT_EQ(Row(window, 1), "1|MS|PLASMA|24.5");
                    EXPECT_TRUE(Shared().MaterialListChanged);
                    window.spinButton.Up();
                    EXPECT_EQ(window.txtSpinText.Text(), "25");
                    EXPECT_EQ(window.txtSpinText.SelLength(), 2u);
                    for (int i = 0; i < 30; ++i) window.spinButton.Down();
                    EXPECT_EQ(test::EntryText(1), "MS|PLASMA|0");
                    window.grdMaterialList.ClickCell(2, 3);
                    window.spinButton.Down();  // of no process: no range
                    EXPECT_EQ(test::EntryText(2), "SS|gone|-.5");
                });
}

TEST_F(EditMaterialList, KeysInTheGridCommitAndStep) {
    Edit(3, kThree, [](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        const auto press = [&](int key, int shift = 0) {
            keyboard.Press(key, shift);
            return Cell(window);
        };
        using namespace views;
        EXPECT_EQ(press(kKeyTab), "1,2");
        EXPECT_EQ(press(kKeyTab), "1,3");
        EXPECT_EQ(press(kKeyTab), "1,3");  // no way round
        EXPECT_EQ(press(kKeyEnter), "2,3");
        EXPECT_EQ(press(kKeyTab, kShift), "2,2");
        EXPECT_EQ(press(kKeyLeft, kCtrl), "2,1");
        EXPECT_EQ(press(kKeyRight, kCtrl), "2,3");
        EXPECT_EQ(press(kKeyLeft), "2,2");
        EXPECT_EQ(Editors(window), "P");
        EXPECT_EQ(press(kKeyDown, kCtrl), "3,2");
        EXPECT_EQ(press(kKeyEnter), "3,2");
        EXPECT_EQ(press(kKeyUp, kCtrl), "1,2");
        EXPECT_EQ(press(kKeyUp), "1,2");
        EXPECT_TRUE(window.grdMaterialList.HasFocus());
        EXPECT_FALSE(Shared().MaterialListChanged);  // moving about is no change
    });
}

TEST_F(EditMaterialList, TypingBeginsAnewOrGoesOn) {
    EditAndDrop(3, kThree, [](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        const auto cell = [&] { return window.grdMaterialList.CurrentText(); };
        keyboard.Type("ab");
        EXPECT_EQ(cell(), "ab");
        EXPECT_EQ(window.cboEditDataType.Text(), "ab");
        keyboard.Type("\b");
        EXPECT_EQ(cell(), "a");
        keyboard.Type("\t\x7f");  // the first leads on, the second is no character to print
        EXPECT_EQ(Cell(window), "1,2");
        EXPECT_EQ(cell(), "PLASMA");
        keyboard.Type("\b");  // a new edit, so the cell is emptied
        EXPECT_EQ(cell(), "");
        window.grdMaterialList.ClickCell(1, 2);  // of the same cell: selects, commits nothing
        EXPECT_EQ(test::EntryText(1), "MS||10");
        keyboard.Type(std::string(70, 'p'));
        EXPECT_EQ(cell(), std::string(64, 'p'));
        window.grdMaterialList.ClickCell(2, 1);
        EXPECT_EQ(Row(window, 1), "1|MS|PLASMA|10");
        keyboard.Type(std::string(40, 'm') + "\xFC");
        EXPECT_EQ(cell(), std::string(32, 'm'));
        // The width goes by the column selected last, so here nothing is cut.
        keyboard.Press(views::kKeyRight);
        keyboard.Type(std::string(40, 'o'));
        EXPECT_EQ(cell(), std::string(32, 'o'));
        window.grdMaterialList.ClickCell(2, 3);
        keyboard.Press(views::kKeyLeft, views::kCtrl);
        keyboard.Type(std::string(40, 'm'));
        EXPECT_EQ(cell(), std::string(40, 'm'));
        EXPECT_EQ(test::EntryText(2), std::string(32, 'm') + "|PLASMA|12.5");
        keyboard.Press(views::kKeyEnd);  // leaves the cell as well
        EXPECT_EQ(Row(window, 2), "2|MS|PLASMA|12.5");
        // In the row or the column last selected the first key replaces, elsewhere it adds.
        window.grdMaterialList.ClickCell(2, 1);
        keyboard.Press(views::kKeyEnd);
        keyboard.Type("8");
        EXPECT_EQ(cell(), "8");
        window.grdMaterialList.ClickCell(2, 1);
        window.grdMaterialList.SetCell(3, 2);
        keyboard.Type("8");
        EXPECT_EQ(cell(), "gone8");
    });
}

TEST_F(EditMaterialList, AddAppendsTheFirstOfEverything) {
    files.drives.Write(test::kSystem + "process.dat",
                       "[Processes]\nProcess1=Oxy Fuel\n[Oxy Fuel]\nThickness1=-2\n");
    EditAndDrop(3, test::kListHeader, [](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        EXPECT_EQ(window.grdMaterialList.Rows(), 2);
        EXPECT_EQ(Editors(window), "");
        window.grdMaterialList.ClickCell(1, 2);
        keyboard.Type("x");
        keyboard.Press(views::kKeyEnter);
        keyboard.Press(views::kKeyRight);
        window.grdMaterialList.DoubleClickCell(1, 1);
        EXPECT_EQ(Row(window, 1), "|||");
        EXPECT_FALSE(Shared().MaterialListChanged);
        EXPECT_EQ(Enabled(window), "A");
        window.cmdAdd.Press();
        window.cmdAdd.Press();
        EXPECT_EQ(window.grdMaterialList.Rows(), 3);
        EXPECT_EQ(Row(window, 2), "2|MS|Oxy Fuel|0");
        EXPECT_EQ(test::EntryText(2), "MS|Oxy Fuel|-2");
        EXPECT_EQ(Cell(window), "2,1");
        EXPECT_EQ(Editors(window), "T");
        EXPECT_TRUE(window.grdMaterialList.HasFocus());
    });
}

TEST_F(EditMaterialList, WithoutTypesAndProcessesEntriesStayAsTheyAre) {
    files.drives.Write(test::kSystem + "process.dat", "");
    files.drives.Write(test::kSystem + "mattypes.dat", "");
    EditAndDrop(3, kThree, [](FrmEditMaterialList& window, test::Keyboard& keyboard) {
        for (int key : {views::kKeyTab, views::kKeyTab, views::kKeyTab}) keyboard.Press(key);
        EXPECT_EQ(Row(window, 1), "1|MS|PLASMA|10");
        EXPECT_EQ(process::Shared().CurrentProcess, 1);
        window.cmdAdd.Press();
        EXPECT_EQ(Row(window, 4), "4|||0");
    });
}

}  // namespace
