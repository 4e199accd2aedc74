// The rules between focus, keys, clicks and changes that no window of the system shows by itself.
#include <gtest/gtest.h>

#include <stdexcept>

#include "errors/errors.h"
#include "tests/support/temp_drives.h"
#include "views/basic_controls.h"
#include "views/form.h"
#include "views/grid.h"
#include "views/keys.h"
#include "views/lists.h"

namespace {

using namespace views;
using std::string;

// A dialog that notes in order where the focus leaves (-txt) and comes (txt), what is clicked or
// chosen (ok!) and what a text becomes (=a).
class Controls : public ::testing::Test, public Form {
  protected:
    Controls() : Form("frmDialog", "Dialog") {
        closeButton = &cancel;
        SetLayout(Column({chk, Row({name, txt}), A, B, C, lst, list, edit, drv, grid, ok, cancel}));
        for (Control* control : Form::Controls()) {
            control->onGotFocus = [this, control] { log += " " + control->Name(); };
            control->onLostFocus = [this, control] { log += " -" + control->Name(); };
        }
        for (OptionButton* option : {&A, &B, &C}) {
            option->onClick = [this, option] { log += " " + option->Name() + "!"; };
        }
        for (ListBox* box : std::initializer_list<ListBox*>{&lst, &list, &edit}) {
            box->onClick = [this, box] { log += " " + box->SelectedText() + "!"; };
        }
        for (TextPart* part : std::initializer_list<TextPart*>{&txt, &list, &edit}) {
            part->onChange = [this, part] { log += " =" + part->Text(); };
        }
        txt.onKeyPress = [](CharEvent& event) { event.handled = event.character == 'x'; };
        chk.onClick = [this] { log += " chk!"; };
        ok.onClick = [this] { log += " ok!"; };
        cancel.onClick = [this] { Close(); };
        drv.onChange = [this] { log += " " + drv.Drive(); };
        grid.onCurrentCellChange = [this] {
            log += " " + std::to_string(grid.Row()) + std::to_string(grid.Column());
        };
        Open();
    }
    void Unload() override { log += " unload"; }
    void Keys(const std::vector<int>& keys, int shift = 0) {
        for (int key : keys) {
            if (!KeyDown(key, shift) && shift == 0) KeyPress(static_cast<char>(key));
        }
    }
    static void Fill(ListBox& box, std::string_view items) {
        for (char item : items) box.AddItem({&item, 1});
    }
    using Cases = std::vector<std::pair<std::function<void()>, string>>;
    static void Expect(string& log, const Cases& cases) {
        for (const auto& [deeds, expected] : cases) {
            deeds();
            EXPECT_EQ(std::exchange(log, {}), expected);
        }
    }

    const test::TempDrives drives;
    CheckBox chk{*this, "chk", "&On"};
    Label name{*this, "name", "&Name:"};
    TextBox txt{*this, "txt"};
    OptionGroup group;
    OptionButton A{*this, "A", "&Arc", group}, B{*this, "B", "B && &C", group};
    OptionButton C{*this, "C", "C", group};
    ListBox lst{*this, "lst", ListBox::Order::kSorted};
    ComboBox list{*this, "list", ComboBox::Style::kListOnly};
    ComboBox edit{*this, "edit", ComboBox::Style::kEditField};
    DriveList drv{*this, "drv"};
    Grid grid{*this, "grid", 6000, 3000};
    CommandButton ok{*this, "ok", "O&k"}, cancel{*this, "cancel", "&Cancel"};
    string log;
};

TEST_F(Controls, RunTheirHandlersInOrder) {
    const Cases cases = {
        {[&] { Activate(), Activate(); }, " chk"},
        {[&] { Keys({kKeyF6, kKeyF6, kKeyF6}); }, " -chk txt -txt A -A chk"},
        {[&] { Keys({kKeyF6, kKeyF6}, kShift); }, " -chk A -A txt"},
        {[&] { Keys({'a', 'x', 'b', kKeyBackspace, kKeyEnter}); }, " =a =ab =a"},
        {[&] { Keys({'A'}, kCtrl), Keys({'q', kKeyBackspace, kKeyBackspace}); }, " =q ="},
        {[&] { txt.Edited("past\r\n[Section]", 15), Keys({'e'}); }, " =past =paste"},
        {[&] { txt.Select(1, 3), Keys({'z'}), txt.CutTo(3), txt.CutTo(2); }, " =pze =pz"},
        {[&] { Keys({'s'}), txt.Select(1, 9), Keys({'r'}); }, " =pzs =pr"},
        {[&] { txt.SetText({"abc\0d", 5}), txt.SetText("abc"); }, " =abc"},
        {[&] { Keys({'&', 'B', 'N'}, kAlt), ok.SetFocus(); }, " -txt ok"},
        {[&] { Keys({kKeyRight, kKeyLeft, kKeyEnter}); }, " -ok cancel -cancel ok ok!"},
        {[&] { defaultButton = &ok, txt.SetFocus(), Keys({13}); }, " -ok txt -txt ok ok!"},
        {[&] { ok.SetEnabled(false), ok.Press(), Keys({'K'}, kAlt); }, " -ok cancel"},
        {[&] { cancel.SetVisible(false), ok.SetEnabled(true); }, " -cancel chk"},
        // Setting it from code runs the handler of an option, picking only if it was not set.
        {[&] { B.SetValue(true), B.SetValue(true), B.SetValue(false); }, " B! B!"},
        {[&] { txt.SetFocus(), Keys({kKeyTab}); }, " -chk txt -txt A"},  // the first of none set
        {[&] { Keys({kKeyRight, kKeyDown, kKeyDown}); }, " -A B B! -B C C! -C A A!"},
        {[&] { B.SetEnabled(false), Keys({kKeyLeft}), Keys({kKeyUp}, kAlt); }, " -A C C!"},
        {[&] { Keys({kKeyUp}), A.Pick(), Keys({kKeyTab}); }, " -C A A! -A lst"},
        {[&] { Keys({kKeyTab}, kShift), Keys({kKeyTab}, kCtrl); }, " -lst A"},
        {[&] { chk.SetValue(true), chk.Toggle(), Keys({kKeyDown}); }, " -A chk chk! -chk txt"},
        // A letter used twice goes round.
        {[&] { B.SetEnabled(true), cancel.SetVisible(true), Keys({'C'}, kAlt); }, " -txt B B!"},
        {[&] { Keys({'C'}, kAlt), Keys({'a'}); }, " -B cancel unload"}};
    Expect(log, cases);
}

TEST_F(Controls, ListsAndGridsMoveByKeysAndStayInside) {
    EXPECT_EQ(grid.Rows() * 100 + grid.Columns() * 10 + grid.FixedColumns(), 221);
    lst.AddItem("G"), lst.SetListIndex(0), Fill(lst, "mbdCaefhijkl"), lst.SetFocus();
    Fill(list, "ABC"), list.SetListIndex(0), Fill(edit, "ABC"), edit.SetListIndex(2);
    grid.SetShape(9, 3, 1, 1), grid.Scrolled(1, 4), grid.SetText(8, 2, "x");
    const Cases cases = {
        {[&] {}, " G! lst A! C!"},
        {[&] { Keys({kKeyUp, kKeyDown, kKeyPageUp, kKeyPageDown}); }, " f! G! a! k!"},
        {[&] { Keys({kKeyEnd, kKeyHome, kKeyPageUp, kKeyLeft, kKeyRight}); }, " m! a! b!"},
        {[&] { Keys({'c', 'c', 'z'}), Keys({kKeyUp}, kAlt); }, " C!"},
        {[&] { lst.RemoveItem(0), lst.RemoveItem(9), Keys({kKeyDown}); }, " d!"},
        {[&] { lst.RemoveItem(2), lst.SetListIndex(99), Keys({kKeyDown}); }, " b!"},
        // A text of its own stays when its entry goes; one of the list goes with it.
        {[&] { edit.SetText("own"), edit.RemoveItem(2), edit.SetListIndex(-1); }, " =own"},
        {[&] { edit.SetFocus(), edit.Select(1, 1), Keys({'b'}); }, " -lst edit =obn"},
        {[&] { list.RemoveItem(0), log = list.Text(), list.SetListIndex(1); }, " C!"},
        {[&] { list.RemoveItem(0), log = list.Text(), list.SetListIndex(-1); }, "C"},
        {[&] { log = list.Text(), list.SetFocus(), Keys({'b'}); }, " -edit list"},
        {[&] { drv.Choose(1), drv.SetDrive("C:\\any"), drv.SetDrive("c:"); }, " -list drv d: c:"},
        {[&] { drv.SetDrive("d"), drv.Choose(9), log += drv.Index() == 1 ? "!" : "?"; }, " d:!"},
        {[&] { grid.SetFocus(), Keys({kKeyDown, kKeyRight, kKeyRight}); }, " -drv grid 21 22"},
        {[&] { Keys({kKeyPageDown, kKeyPageDown, kKeyHome, kKeyLeft}); }, " 62 82 81"},
        {[&] { Keys({kKeyEnd, kKeyPageUp, kKeyUp}), Keys({kKeyUp}, kShift); }, " 82 42 32"},
        {[&] { grid.SetCell(99, -5), grid.AddRow({"", "new"}, 1); }, " 80"},
        {[&] { log = grid.Text(1, 1) + grid.Text(9, 2), grid.RemoveRow(9); }, "newx"},
        {[&] { Keys({kKeyRight}), grid.RemoveRow(1), grid.Scrolled(1, 0); }, " 81"},
        {[&] { Keys({kKeyPageUp}); }, " 61"}};
    Expect(log, cases);
    EXPECT_THROW(grid.Text(8, 0), std::out_of_range);
    EXPECT_THROW(grid.SetText(0, 3, ""), std::out_of_range);
    std::filesystem::remove(drives.Folder() / "d");
    drv.Refresh();
    EXPECT_EQ(drv.Items(), (std::vector<string>{"c:", "d:"})) << "what is chosen stays";
    for (const char* none : {"d:", "x:", ""}) EXPECT_THROW(drv.SetDrive(none), errors::FileError);
    const Label unplaced(*this, "lblUnplaced", "");
    EXPECT_THROW(Open(), std::logic_error);
}

}  // namespace
