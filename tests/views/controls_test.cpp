// The rules between focus, keys, clicks and changes, without a window.
#include <gtest/gtest.h>

#include <stdexcept>

#include "errors/errors.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/temp_drives.h"
#include "views/application.h"
#include "views/basic_controls.h"
#include "views/form.h"
#include "views/grid.h"
#include "views/lists.h"
#include "views/printer.h"
#include "views/text_box.h"
#include "views/view_procedures.h"

namespace {

using Log = std::vector<std::string>;

// A dialog that notes its events in order.
struct Dialog : views::Form {
    Dialog() : Form("frmDialog", "Dialog") {
        closeButton = &cmdCancel;
        using namespace views;
        SetLayout(Column({lblName, txtName, chkOn, optA, optB, optC, lstItems, cmdOk, cmdCancel}));
        for (Control* control : Controls()) {
            control->onGotFocus = [this, control] { Note("got ", *control); };
            control->onLostFocus = [this, control] { Note("lost ", *control); };
        }
        txtName.onKeyDown = [this](KeyEvent& event) {
            log.push_back("down " + std::to_string(event.key));
            event.handled = event.key == kKeyDown;
        };
        txtName.onKeyPress = [this](CharEvent& event) {
            log.push_back("press " + std::to_string(event.character));
            event.handled = event.character == 'x';
        };
        txtName.onChange = [this] { log.push_back("change " + txtName.Text()); };
        chkOn.onClick = [this] { Note("click ", chkOn); };
        for (OptionButton* option : {&optA, &optB, &optC}) {
            option->onClick = [this, option] { Note("click ", *option); };
        }
        lstItems.onClick = [this] { Note("click ", lstItems); };
        cmdOk.onClick = [this] { Note("click ", cmdOk); };
        cmdCancel.onClick = [this] {
            Note("click ", cmdCancel);
            Close();
        };
    }
    void Unload() override { log.push_back("unload"); }
    void Note(const std::string& what, const views::Control& control) {
        log.push_back(what + control.Name());
    }
    Log Take() { return std::exchange(log, {}); }
    using Form::defaultButton;
    using Form::firstFocus;

    views::Label lblName{*this, "lblName", "&Name:"};
    views::TextBox txtName{*this, "txtName"};
    views::CheckBox chkOn{*this, "chkOn", "&On"};
    views::OptionGroup group;
    views::OptionButton optA{*this, "optA", "&Arc", group};
    views::OptionButton optB{*this, "optB", "B && &C", group};
    views::OptionButton optC{*this, "optC", "C", group};
    views::ListBox lstItems{*this, "lstItems"};
    views::CommandButton cmdOk{*this, "cmdOk", "O&k"};
    views::CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
    Log log;
};

class Controls : public ::testing::Test {
  protected:
    // Shows the dialog and does this in it.
    void Work(const std::function<void(test::Keyboard&)>& steps) {
        screen.windows.push_back([&](views::Form& form) {
            test::Keyboard keyboard(form);
            dialog.Take();
            steps(keyboard);
        });
        views::ShowModal(dialog);
    }
    test::ScriptedScreen screen;
    Dialog dialog;
};

TEST_F(Controls, AKeyRunsDownPressChangeInOrder) {
    Work([&](test::Keyboard& keyboard) {
        keyboard.Type("a");
        EXPECT_EQ(dialog.Take(), (Log{"down 65", "press 97", "change a"}));
        keyboard.Type("x");  // refused by KeyPress
        EXPECT_EQ(dialog.Take(), (Log{"down 88", "press 120"}));
        keyboard.Press(views::kKeyDown);  // swallowed by KeyDown
        EXPECT_EQ(dialog.Take(), Log{"down 40"});
        keyboard.Press(views::kKeyBackspace);
        EXPECT_EQ(dialog.Take(), (Log{"down 8", "press 8", "change "}));
        keyboard.Press(views::kKeyEnter);  // no default button: a handler may want it
        EXPECT_EQ(dialog.Take(), (Log{"down 13", "press 13"}));
    });
}

TEST_F(Controls, ButtonsMoveTheFocusBeforeTheyClick) {
    Work([&](test::Keyboard& keyboard) {
        dialog.cmdOk.Press();
        EXPECT_EQ(dialog.Take(), (Log{"lost txtName", "got cmdOk", "click cmdOk"}));
        keyboard.Press(views::kKeyEnter);
        EXPECT_EQ(dialog.Take(), Log{"click cmdOk"});
        keyboard.Press('N', views::kAlt);  // the label's mnemonic goes to the box behind it
        EXPECT_EQ(dialog.Take(), (Log{"lost cmdOk", "got txtName"}));
        keyboard.Press('K', views::kAlt);
        EXPECT_EQ(dialog.Take(), (Log{"down 75", "lost txtName", "got cmdOk", "click cmdOk"}));
        dialog.cmdOk.SetEnabled(false);  // the focus goes on by itself
        EXPECT_EQ(dialog.Take(), (Log{"lost cmdOk", "got cmdCancel"}));
        dialog.cmdOk.Press();
        keyboard.Press('K', views::kAlt);
        EXPECT_EQ(dialog.Take(), Log{});
    });
}

TEST_F(Controls, EnterPressesTheDefaultButtonAndEscapeTheCancelButton) {
    dialog.defaultButton = &dialog.cmdOk;
    Work([&](test::Keyboard& keyboard) {
        keyboard.Press(views::kKeyEnter);
        EXPECT_EQ(dialog.Take(), (Log{"down 13", "lost txtName", "got cmdOk", "click cmdOk"}));
        keyboard.Press(views::kKeyEscape);
        EXPECT_EQ(dialog.Take(), (Log{"lost cmdOk", "got cmdCancel", "click cmdCancel", "unload"}));
        keyboard.Type("a");  // the window is gone
        EXPECT_FALSE(dialog.IsOpen());
    });
}

TEST_F(Controls, OptionButtonsReleaseEachOther) {
    dialog.optB.SetValue(true);
    dialog.optB.SetValue(true);  // from code the handler runs each time
    EXPECT_EQ(dialog.Take(), (Log{"click optB", "click optB"}));
    dialog.optB.SetValue(false);
    EXPECT_EQ(dialog.Take(), Log{});
    Work([&](test::Keyboard& keyboard) {
        keyboard.Press('A', views::kAlt);
        dialog.Take();
        dialog.optA.Pick();  // set already: the operator changes nothing
        EXPECT_EQ(dialog.Take(), Log{});
        dialog.optB.SetEnabled(false);
        keyboard.Press(views::kKeyRight);
        EXPECT_EQ(dialog.Take(), (Log{"lost optA", "got optC", "click optC"}));
        keyboard.Press(views::kKeyDown);
        EXPECT_EQ(dialog.Take(), (Log{"lost optC", "got optA", "click optA"}));
        EXPECT_FALSE(dialog.optC.Value());
    });
}

TEST_F(Controls, TabFollowsTheLayoutAndStopsOnceInAGroup) {
    dialog.optC.SetValue(true);
    dialog.chkOn.SetEnabled(false);
    Work([&](test::Keyboard& keyboard) {
        Log order;
        for (int i = 0; i < 6; ++i) {
            order.push_back(dialog.Focus()->Name());
            keyboard.Press(views::kKeyTab);
        }
        EXPECT_EQ(order, (Log{"txtName", "optC", "lstItems", "cmdOk", "cmdCancel", "txtName"}));
        dialog.optC.SetValue(false);
        dialog.cmdOk.SetFocus();
        keyboard.Press(views::kKeyTab, views::kShift);
        keyboard.Press(views::kKeyTab, views::kShift);
        EXPECT_EQ(dialog.Focus(), &dialog.optA);
        keyboard.Press(views::kKeyTab, views::kShift);
        EXPECT_EQ(dialog.Focus(), &dialog.txtName);  // not round the group
    });
}

TEST_F(Controls, ChangesFromCodeRunTheHandlersTheyShould) {
    dialog.txtName.SetText(std::string("abc\0def", 7));
    dialog.txtName.SetText("abc");
    EXPECT_EQ(dialog.Take(), Log{"change abc"});
    dialog.txtName.Select(2, 99);
    EXPECT_EQ(dialog.txtName.SelLength(), 1u);
    dialog.txtName.Edited("pasted\r\n[Section]", 17);
    EXPECT_EQ(dialog.txtName.Text(), "pasted");
    dialog.Take();
    dialog.chkOn.SetValue(true);
    EXPECT_EQ(dialog.Take(), Log{});
    dialog.lstItems.AddItem("one");
    dialog.lstItems.AddItem("two");
    dialog.lstItems.SetListIndex(1);
    dialog.lstItems.SetListIndex(-1);
    EXPECT_EQ(dialog.Take(), Log{"click lstItems"});
    EXPECT_EQ(dialog.lstItems.SelectedText(), "");
    views::ListBox sorted(dialog, "lstSorted", views::ListBox::Order::kSorted);
    for (const char* item : {"b", "C", "a"}) sorted.AddItem(item);
    EXPECT_EQ(sorted.Items(), (Log{"a", "b", "C"}));
}

TEST_F(Controls, ComboBoxesTellPickingFromTyping) {
    using views::ComboBox;
    ComboBox list(dialog, "cboList", ComboBox::Style::kListOnly);
    ComboBox edit(dialog, "cboEdit", ComboBox::Style::kEditField);
    Log log;
    for (ComboBox* combo : {&list, &edit}) {
        combo->onClick = [&log, combo] { log.push_back("click " + combo->Text()); };
        combo->onChange = [&log, combo] { log.push_back("change " + combo->Text()); };
        for (const char* item : {"A", "B", "C"}) combo->AddItem(item);
    }
    list.SetListIndex(0);
    edit.SetListIndex(2);
    edit.SetText("typed");
    EXPECT_EQ(std::exchange(log, {}), (Log{"click A", "click C", "change typed"}));
    list.RemoveItem(0);
    edit.RemoveItem(2);
    EXPECT_EQ(list.Text(), "");
    EXPECT_EQ(list.ListIndex(), -1);
    edit.Clear();
    EXPECT_EQ(edit.Text(), "typed");
    EXPECT_EQ(log, Log{});
}

TEST_F(Controls, DriveListRefusesWhatIsNotThere) {
    test::TempDrives drives;
    views::DriveList list(dialog, "drvList");
    int changes = 0;
    list.onChange = [&] { ++changes; };
    EXPECT_EQ(list.Drive(), "c:");
    EXPECT_THROW(list.SetDrive("x:"), errors::FileError);
    EXPECT_THROW(list.SetDrive(""), errors::FileError);
    list.SetDrive("C:\\anything");
    EXPECT_EQ(changes, 0);
    list.SetDrive("D:");
    EXPECT_EQ(list.Drive(), "d:");
    std::filesystem::remove(drives.Folder() / "d");
    list.Refresh();
    EXPECT_EQ(list.Items(), (Log{"c:", "d:"}));  // what is chosen stays to be seen
    EXPECT_THROW(list.SetDrive("d:"), errors::FileError);
    EXPECT_EQ(changes, 1);
}

TEST_F(Controls, GridKeepsItsCellInsideAndTellsWhatWasClicked) {
    views::Grid grid(dialog, "grdData", 6000, 3000);
    grid.SetShape(4, 3, 1, 1);
    EXPECT_THROW(dialog.Open(), std::logic_error) << "no layout places it";
    grid.neverShown = true;
    Log log;
    const auto note = [&](const char* what) {
        return [&log, &grid, what] {
            log.push_back(what + std::to_string(grid.Row()) + "," + std::to_string(grid.Column()));
        };
    };
    grid.onCurrentCellChange = note("cell ");
    grid.onClick = note("click ");
    grid.onRowClick = note("row ");
    grid.onDoubleClick = note("double ");
    Work([&](test::Keyboard& keyboard) {
        grid.ClickCell(3, 2);
        grid.ClickCell(2, 0);
        grid.ClickCell(0, 1);  // the heading
        grid.DoubleClickCell(2, 1);
        EXPECT_EQ(std::exchange(log, {}),
                  (Log{"cell 3,2", "click 3,2", "cell 2,1", "row 2,1", "double 2,1"}));
        keyboard.Press(views::kKeyLeft);
        keyboard.Press(views::kKeyDown);
        keyboard.Press(views::kKeyDown);
        keyboard.Press(views::kKeyEnd);
        EXPECT_EQ(std::exchange(log, {}), (Log{"cell 3,1", "cell 3,2"}));
    });
    grid.SetText(3, 2, "x");
    grid.AddRow({"", "new"}, 1);
    EXPECT_EQ(grid.Text(4, 2), "x");
    EXPECT_EQ(grid.Text(1, 1), "new");
    grid.SetCell(99, -5);
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(grid.Column(), 0);
    grid.RemoveRow(4);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_THROW(grid.Text(4, 0), std::out_of_range);
    EXPECT_THROW(grid.SetText(0, 3, ""), std::out_of_range);
}

// A failure in a window on top of another ends both, and what stands behind the call that showed
// it is left.
TEST_F(Controls, AnUnexpectedFailureEndsTheRunInOrder) {
    Dialog above;
    above.cmdOk.onClick = [] { throw errors::FatalError("c:\\x: the disk is gone"); };
    bool saved = false, wentOn = false;
    views::OnFailure([&] { saved = true; });
    dialog.cmdOk.onClick = [&] {
        views::ShowModal(above);
        wentOn = true;
    };
    screen.windows.push_back([&](views::Form&) { views::Guard([&] { dialog.cmdOk.Press(); }); });
    screen.windows.push_back([&](views::Form&) { views::Guard([&] { above.cmdOk.Press(); }); });
    views::Guard([&] { views::ShowModal(dialog); });
    EXPECT_EQ(screen.TakeLog(), Log{test::Box("Quarvel System Manager", "c:\\x: the disk is gone",
                                              "OK", "critical")});
    EXPECT_TRUE(saved);
    EXPECT_FALSE(wentOn);
    EXPECT_FALSE(dialog.IsOpen() || above.IsOpen());
    EXPECT_EQ(views::ExitStatus(), 1);
}

TEST(Printer, MovesToColumnsAndPages) {
    struct Kept : views::Printer {
        void ShowSetup() override {}
        void Send(const std::vector<Page>& sent) override { pages = sent; }
        std::vector<Page> pages;
    } printer;
    printer.Print("name");
    printer.MoveTo(8);
    printer.PrintLine("size");
    printer.Print("a longer name");
    printer.MoveTo(5);  // passed already
    printer.PrintLine("x");
    printer.NewPage();
    printer.Print("end");
    printer.EndDocument();
    EXPECT_EQ(printer.pages,
              (std::vector<Log>{{"name   size", "a longer name", "    x"}, {"end"}}));
    printer.EndDocument();
    EXPECT_EQ(printer.pages, std::vector<Log>{Log{}});
}

}  // namespace
