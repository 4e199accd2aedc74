// What the toolkit's own parts do in real windows, and what only a mouse can do there.
#include <gtest/gtest.h>
#include <wx/uiaction.h>
#include <wx/utils.h>
#include <wx/window.h>

#include "tests/gui/person.h"
#include "tests/gui/real_player.h"
#include "tests/support/workshop.h"
#include "views/text_box.h"

namespace {

class RealWindows : public ::testing::Test {
  protected:
    const test::Workshop workshop;
    test::RealPlayer player;
};

// The first click counts wherever the focus was, coming by Tab chooses nothing, and a list that
// hangs open has the keys for itself.
TEST_F(RealWindows, ListsByMouse) {
    player.Play(workshop, R"(
        click optProduction, click lstDirectory -> optProduction on; lstDirectory {p10}
            -> lstDirectory "p10"; cmdMaterial; cmdDelete; cmdPrint
        click optDesign, Shift+Tab, Tab, Tab, Tab -> optDesign on; lstDirectory {plates}
            -> lstDirectory ""; (cmdMaterial); (cmdDelete); (cmdPrint); focus cmdCreate
        click drvList, no, Down, Enter -> focus drvList
            -> box Yes/No "No Nest data on d:\nWould you like to make d: a Nest data drive?"
        click cmdSysProcess -> ...
        click cmdAddProcess, 'neu', click cboCopy, Up, Enter -> "Add Process"
            -> txtNewProcessName "neu"; cboCopy {Plasma; Oxy Fuel; None}; cboCopy "Oxy Fuel"
            -> focus cboCopy
        Esc, Esc -> focus cmdSysProcess
        click cmdSysDefaults -> ...
        click cboEditDataType, Down, Enter -> row 1: 1 | SS304 | Plasma | -; cboEditDataType "SS304"
            -> focus cboEditDataType
        click 1 2, click cboEditDataProcess, Down, Enter -> row 1: 1 | SS304 | Oxy Fuel | -; at 1 2
            -> no cboEditDataType; cboEditDataProcess; cboEditDataProcess "Oxy Fuel"
            -> focus cboEditDataProcess
        no, close -> focus cmdSysDefaults
            -> box Yes/No none "Save Material List file" "<9>Save Changes ?"
    )");
}

// The question is up by the second click, which must be no press of anything.
TEST_F(RealWindows, AButtonClickedTwiceAsksOnce) {
    player.own = [](views::Form& form) { test::Click(*form.Focus(), true); };
    player.Play(workshop, R"(
        click cmdSysMaterial, click 1 2, focus cmdDelete -> ...
        no, '*' -> box Yes/No none "Deleting Material Type" "<4>Delete Material Type Code :
            -> \r\r<19>MS\r\r<6>If you delete this material, any \rReference to this will become
            -> INVALID\r\r<16>Are you Sure ?"
        yes, '*' -> row 1: SS304 | Stainless | 0.5; txtEditData "0.5"; (cmdDelete)
            -> focus grdMaterialTypes; gone row 2: SS304 | Stainless | 0.5
            -> box again "Deleting Material Type"
    )");
}

// The commands know of one cell or one row only.
TEST_F(RealWindows, ADragMarksNothing) {
    player.own = [](views::Form&) {
        wxUIActionSimulator mouse;
        mouse.MouseMove(wxGetMousePosition() + wxPoint(15, 3));  // or it is a second click
        mouse.MouseDown();
        for (int part = 0; part < 8; ++part) {
            mouse.MouseMove(wxGetMousePosition() + wxPoint(15, 3));
            test::Settle();
        }
        mouse.MouseUp();
        test::Settle();
    };
    player.Play(workshop, R"(
        click cmdSysMaterial, click 1 1 -> ...
        '*' ->
    )");
}

// It steps on and on, up to the thickest plate of the process.
TEST_F(RealWindows, AnArrowHeldDown) {
    player.own = [](views::Form& form) {
        const wxWindow* const arrows = test::RealOf(*form.Focus());
        const wxSize size = arrows->GetSize();
        wxUIActionSimulator mouse;
        mouse.MouseMove(arrows->ClientToScreen(wxPoint(size.x * 3 / 4, size.y / 2)));
        mouse.MouseDown();
        for (const views::Control* control : form.Controls()) {
            const auto* box = dynamic_cast<const views::TextBox*>(control);
            if (box != nullptr && box->Name() == "txtSpinText") {
                EXPECT_TRUE(test::Until([&] { return box->Text() == "25"; })) << box->Text();
            }
        }
        mouse.MouseUp();
        test::Settle();
    };
    player.Play(workshop, R"(
        click optProduction, choose lstDirectory p10, click cmdMaterial, click 1 3 -> ...
        focus spinButton, '*' -> row 1: 1 | MS | Plasma | 25; txtSpinText "25"; focus spinButton
        no, close -> optProduction on; lstDirectory {p10}; lstDirectory "p10"; cmdMaterial
            -> cmdDelete; cmdPrint; focus cmdMaterial
            -> box Yes/No none "Save Material List file" "<9>Save Changes ?"
    )");
}

}  // namespace
