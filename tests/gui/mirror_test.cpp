// A window with every kind of control, worked by mouse and keyboard through the platform: what the
// plain controls report is what the person did, in the right order.
#include <gtest/gtest.h>
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/grid.h>
#include <wx/listbox.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>

#include "tests/gui/person.h"
#include "tests/support/temp_drives.h"
#include "views/application.h"
#include "views/basic_controls.h"
#include "views/grid.h"
#include "views/lists.h"
#include "views/screen.h"
#include "views/text_box.h"
#include "views/view_procedures.h"

namespace {

using Log = std::vector<std::string>;

struct Everything : views::Form {
    Everything() : Form("frmEverything", "Every control") {
        resizable = true;
        closeButton = &cmdCancel;
        firstFocus = &txtText;
        using namespace views;
        for (const char* item : {"alpha", "beta", "gamma"}) {
            lstItems.AddItem(item);
            cboList.AddItem(item);
            cboEdit.AddItem(item);
        }
        grdCells.SetShape(31, 4, 1, 1);
        for (int row = 1; row < 31; ++row) grdCells.SetText(row, 1, std::to_string(row));
        SetLayout(Row({Column({Fields({lblText, txtText, lblOther, txtOther}), chkTick,
                               Framed(fraOptions, Column({optOne, optTwo, optThree})), lstItems}),
                       Column({cboList, cboEdit, drvDrives, spnSteps, Grow(grdCells),
                               Row({Stretch(), cmdOk, cmdCancel})})}));
        for (Control* control : Controls()) Follow(*control);
        txtText.onChange = [this] { Note("change " + txtText.Text()); };
        cboEdit.onChange = [this] { Note("change " + cboEdit.Text()); };
        chkTick.onClick = [this] { Note(chkTick.Value() ? "ticked" : "cleared"); };
        for (OptionButton* option : {&optOne, &optTwo, &optThree}) {
            option->onClick = [this, option] { Note("click " + option->Name()); };
        }
        for (ListBox* list : std::initializer_list<ListBox*>{&lstItems, &cboList, &cboEdit}) {
            list->onClick = [this, list] { Note("pick " + list->SelectedText()); };
        }
        drvDrives.onChange = [this] { Note("drive " + drvDrives.Drive()); };
        spnSteps.onSpinUp = [this] { Note("up"); };
        spnSteps.onSpinDown = [this] { Note("down"); };
        cmdOk.onClick = [this] { Note("click cmdOk"); };
        cmdCancel.onClick = [this] { Close(); };
        grdCells.onCurrentCellChange = [this] { Note("cell " + Cell()); };
        grdCells.onClick = [this] { Note("click " + Cell()); };
        grdCells.onRowClick = [this] { Note("row " + Cell()); };
        grdCells.onDoubleClick = [this] { Note("double " + Cell()); };
    }
    void Follow(views::Control& control) {
        control.onGotFocus = [this, &control] { Note("got " + control.Name()); };
        control.onLostFocus = [this, &control] { Note("lost " + control.Name()); };
        control.onKeyDown = [this](views::KeyEvent& event) {
            if (event.shift == 0 || event.key == views::kKeyTab) {
                keys.push_back("down " + std::to_string(event.key));
            }
        };
        control.onKeyPress = [this](views::CharEvent& event) {
            keys.push_back(std::string("press ") + event.character);
            event.handled = event.character == 'x';
        };
    }
    std::string Cell() const {
        return std::to_string(grdCells.Row()) + "," + std::to_string(grdCells.Column());
    }
    void Note(const std::string& what) { log.push_back(what); }
    Log Take() {
        keys.clear();
        return std::exchange(log, {});
    }
    using Form::defaultButton;

    views::Label lblText{*this, "lblText", "&Text:"}, lblOther{*this, "lblOther", "Other:"};
    views::TextBox txtText{*this, "txtText"}, txtOther{*this, "txtOther"};
    views::CheckBox chkTick{*this, "chkTick", "Tic&k"};
    views::Frame fraOptions{*this, "fraOptions", "Options"};
    views::OptionGroup group;
    views::OptionButton optOne{*this, "optOne", "&One", group},
        optTwo{*this, "optTwo", "T&wo", group}, optThree{*this, "optThree", "Three", group};
    views::ListBox lstItems{*this, "lstItems"};
    views::ComboBox cboList{*this, "cboList", views::ComboBox::Style::kListOnly};
    views::ComboBox cboEdit{*this, "cboEdit", views::ComboBox::Style::kEditField};
    views::DriveList drvDrives{*this, "drvDrives"};
    views::SpinButton spnSteps{*this, "spnSteps"};
    views::Grid grdCells{*this, "grdCells", 6000, 3600};
    views::CommandButton cmdOk{*this, "cmdOk", "O&K"}, cmdCancel{*this, "cmdCancel", "Cancel"};
    Log log, keys;
};

class Mirror : public ::testing::Test {
  protected:
    void Work(const std::function<void()>& steps) {
        test::WorkIn(form, [&] {
            EXPECT_EQ(form.Take(), Log{"got txtText"});
            steps();
        });
    }
    template <class Real>
    Real* RealOf(const views::Control& control) {
        return dynamic_cast<Real*>(test::RealOf(control));
    }
    test::TempDrives drives;
    Everything form;
};

TEST_F(Mirror, TypingReachesTheTextBoxInOrder) {
    Work([&] {
        test::Type("7.a");
        EXPECT_EQ(form.keys,
                  (Log{"down 55", "press 7", "down 0", "press .", "down 65", "press a"}));
        EXPECT_EQ(form.Take(), (Log{"change 7", "change 7.", "change 7.a"}));
        test::Key('x');  // refused by its KeyPress
        test::Key(WXK_BACK);
        EXPECT_EQ(form.Take(), Log{"change 7."});
        form.txtText.SetText("from code");
        form.txtText.SelectAll();
        EXPECT_EQ(form.Take(), Log{"change from code"});
        test::Key('n');  // replaces what is selected
        EXPECT_EQ(RealOf<wxTextCtrl>(form.txtText)->GetValue(), "n");
        EXPECT_EQ(form.Take(), Log{"change n"});
        // Pasting what the character set lacks is refused, not replaced by question marks.
        RealOf<wxTextCtrl>(form.txtText)->WriteText(wxString::FromUTF8("\xCE\xA9"));
        EXPECT_TRUE(test::Until([&] { return test::Differences(form).empty(); }));
        EXPECT_EQ(form.txtText.Text(), "n");
        // By a menu of the mouse it comes without any key, and in a box that lacks the focus.
        form.txtOther.SetFocus();
        RealOf<wxTextCtrl>(form.txtText)->WriteText(wxString::FromUTF8("\xC3\xBC"));
        EXPECT_TRUE(test::Until([&] { return form.txtText.Text().size() == 2u; }));
        EXPECT_TRUE(form.txtText.HasFocus());
    });
}

TEST_F(Mirror, TheFocusFollowsTabMouseAndCode) {
    Work([&] {
        test::Key(WXK_TAB);
        test::Key(WXK_TAB);
        test::Key(WXK_TAB, wxMOD_SHIFT);
        EXPECT_EQ(form.Take(), (Log{"lost txtText", "got txtOther", "lost txtOther", "got chkTick",
                                    "lost chkTick", "got txtOther"}));
        test::Click(form.txtText);
        EXPECT_EQ(form.Take(), (Log{"lost txtOther", "got txtText"}));
        form.lstItems.SetFocus();
        test::Key(WXK_TAB, wxMOD_SHIFT);
        test::Key(WXK_TAB);
        EXPECT_EQ(form.Take(), (Log{"lost txtText", "got lstItems", "lost lstItems", "got optOne",
                                    "lost optOne", "got lstItems"}))
            << "walking through a list or options chooses nothing";
        EXPECT_EQ(RealOf<wxListBox>(form.lstItems)->GetSelection(), wxNOT_FOUND);
        form.lstItems.SetEnabled(false);
        EXPECT_EQ(form.Take(), (Log{"lost lstItems", "got cboList"}));
        EXPECT_TRUE(test::Until([&] { return RealOf<wxChoice>(form.cboList)->HasFocus(); }));
        form.cboList.SetVisible(false);
        EXPECT_EQ(form.Take(), (Log{"lost cboList", "got cboEdit"}));
    });
}

TEST_F(Mirror, ButtonsBoxesAndOptions) {
    Work([&] {
        test::Click(form.cmdOk);
        EXPECT_EQ(form.Take(), (Log{"lost txtText", "got cmdOk", "click cmdOk"}));
        test::Key(WXK_SPACE);
        test::Key(WXK_RETURN);
        EXPECT_EQ(form.Take(), (Log{"click cmdOk", "click cmdOk"}));
        test::Click(form.chkTick);
        test::Key(WXK_SPACE);
        test::Key('K', wxMOD_ALT);  // of two that share it the next one
        EXPECT_EQ(form.Take(), (Log{"lost cmdOk", "got chkTick", "ticked", "cleared",
                                    "lost chkTick", "got cmdOk", "click cmdOk"}));
        test::Key('W', wxMOD_ALT);
        EXPECT_EQ(form.Take(), (Log{"lost cmdOk", "got optTwo", "click optTwo"}));
        test::Key(WXK_DOWN);
        EXPECT_EQ(form.Take(), (Log{"lost optTwo", "got optThree", "click optThree"}));
        test::Click(form.optOne);
        test::Click(form.optOne);
        EXPECT_EQ(form.Take(), (Log{"lost optThree", "got optOne", "click optOne"}));
        EXPECT_FALSE(RealOf<wxRadioButton>(form.optThree)->GetValue());
        form.optOne.SetValue(false);
        EXPECT_FALSE(RealOf<wxRadioButton>(form.optOne)->GetValue());
        test::Key('T', wxMOD_ALT);
        EXPECT_EQ(form.Take(), (Log{"lost optOne", "got txtText"}));
    });
}

TEST_F(Mirror, ListsCombosDrivesAndSpin) {
    Work([&] {
        test::Click(form.lstItems);
        form.Take();
        test::Key(WXK_HOME);
        form.Take();
        test::Key(WXK_DOWN);
        EXPECT_EQ(form.Take(), Log{"pick beta"});
        // The first click counts wherever the focus was, and coming by Tab chooses nothing.
        form.txtText.SetFocus();
        form.Take();
        auto* list = RealOf<wxListBox>(form.lstItems);
        int y = 0;
        while (list->HitTest(wxPoint(20, y)) != 2 && y < 200) ++y;
        test::ClickAt([=] { return list->ClientToScreen(wxPoint(20, y + 4)); });
        EXPECT_EQ(form.Take(), (Log{"lost txtText", "got lstItems", "pick gamma"}));
        form.lstItems.SetListIndex(-1);
        test::Key(WXK_TAB);
        test::Key(WXK_TAB, wxMOD_SHIFT);
        EXPECT_TRUE(form.lstItems.HasFocus());
        EXPECT_EQ(form.lstItems.ListIndex(), -1);
        EXPECT_EQ(test::Differences(form), "");
        form.lstItems.AddItem("delta");
        form.lstItems.SetListIndex(3);
        EXPECT_TRUE(test::Until(
            [&] { return RealOf<wxListBox>(form.lstItems)->GetStringSelection() == "delta"; }));
        form.cboList.SetListIndex(1);
        EXPECT_EQ(RealOf<wxChoice>(form.cboList)->GetSelection(), 1);
        form.cboEdit.SetFocus();
        form.Take();
        test::Type("be");
        EXPECT_EQ(form.Take(), (Log{"change b", "change be"}));
        form.cboEdit.SetText("gam");
        form.cboEdit.SelectAll();
        EXPECT_EQ(RealOf<wxComboBox>(form.cboEdit)->GetValue(), "gam");
        test::Key('g');
        EXPECT_EQ(form.cboEdit.Text(), "g");
        form.drvDrives.SetFocus();
        form.Take();
        test::Key(WXK_DOWN, wxMOD_NONE);  // opens the list or moves in it, by platform
        test::Key(WXK_DOWN);
        if (form.log.empty()) test::Key(WXK_RETURN);
        EXPECT_TRUE(test::Until([&] { return form.drvDrives.Drive() == "d:"; }));
        EXPECT_EQ(form.Take(), Log{"drive d:"});
        form.spnSteps.SetFocus();
        form.Take();
        test::Key(WXK_UP);
        test::Key(WXK_DOWN);
        test::Key(WXK_UP);
        EXPECT_EQ(form.Take(), (Log{"up", "down", "up"}));
    });
}

TEST_F(Mirror, TheGridIsWorkedByMouseAndKeys) {
    Work([&] {
        auto* grid = RealOf<wxGrid>(form.grdCells);
        EXPECT_EQ(grid->GetNumberRows(), 30);
        test::ClickCell(form.grdCells, 2, 2);
        EXPECT_EQ(form.Take(), (Log{"lost txtText", "got grdCells", "cell 2,2", "click 2,2"}));
        test::ClickCell(form.grdCells, 3, 0);
        EXPECT_EQ(form.Take(), (Log{"cell 3,1", "row 3,1"}));
        test::ClickCell(form.grdCells, 1, 3, true);
        EXPECT_EQ(form.Take(), (Log{"cell 1,3", "click 1,3", "double 1,3"}));
        test::Key(WXK_LEFT);
        test::Key(WXK_DOWN);
        EXPECT_EQ(form.Take(), (Log{"cell 1,2", "cell 2,2"}));
        test::Type("4");
        test::Key(WXK_BACK);
        EXPECT_EQ(form.keys, (Log{"down 52", "press 4", "down 8", "press \b"}));
        form.grdCells.SetCell(30, 1);
        EXPECT_TRUE(test::Until([&] { return grid->IsVisible(29, 0); }));
        form.grdCells.SetTopRow(10);
        EXPECT_TRUE(test::Until([&] { return grid->GetFirstFullyVisibleRow() == 9; }));
        form.grdCells.RemoveRow(1);
        form.grdCells.AddRow({"", "added", "", ""});
        EXPECT_TRUE(test::Until([&] { return grid->GetCellValue(29, 0) == "added"; }));
        test::Key(WXK_TAB);  // the grid does not keep it
        EXPECT_EQ(form.Focus(), &form.cmdOk);
    });
}

TEST_F(Mirror, BoxesAreNoLossOfFocusAndDismissalIsNo) {
    Work([&] {
        views::Answer answer = views::Answer::kOk;
        form.cmdOk.onClick = [&] {
            answer = views::TheScreen().Show(
                {"     Sure ?\rReally", "Title", views::Buttons::kYesNo, views::Icon::kQuestion});
        };
        test::AnswerNextBox(true);
        test::Click(form.cmdOk);
        EXPECT_TRUE(test::Until([&] { return answer == views::Answer::kYes; }));
        EXPECT_EQ(form.Take(), (Log{"lost txtText", "got cmdOk"}));
        test::AnswerNextBox(false);
        test::Key('K', wxMOD_ALT);
        test::Key('K', wxMOD_ALT);
        EXPECT_TRUE(test::Until([&] { return answer != views::Answer::kYes; }));
        EXPECT_EQ(answer, views::Answer::kNo);
    });
}

TEST_F(Mirror, EscapeAndTheDefaultButton) {
    form.defaultButton = &form.cmdOk;
    Work([&] {
        test::Key(WXK_RETURN);
        EXPECT_EQ(form.Take(), (Log{"lost txtText", "got cmdOk", "click cmdOk"}));
        test::Click(form.txtText);
        test::Key(WXK_ESCAPE);
        EXPECT_FALSE(form.IsOpen());
    });
}

}  // namespace
