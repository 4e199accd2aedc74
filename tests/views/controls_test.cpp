// What lists and grids do with keys and changes and no window of the system shows by itself.
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

// A dialog that notes in order where the focus leaves (-lst) and comes (lst), what is chosen or
// pressed (a!), what a text becomes (=a), where the cell is (21), and a key that nothing handles
// (~).
class Controls : public ::testing::Test, public Form {
  protected:
    Controls() : Form("frmDialog", "Dialog") {
        SetLayout(Column({lst, list, edit, drv, grid, one, two, three, spin, ok}));
        for (Control* control : Form::Controls()) {
            control->onGotFocus = [this, control] { log += " " + control->Name(); };
            control->onLostFocus = [this, control] { log += " -" + control->Name(); };
        }
        for (ListBox* box : std::initializer_list<ListBox*>{&lst, &list, &edit}) {
            box->onClick = [this, box] { log += " " + box->SelectedText() + "!"; };
        }
        for (TextPart* part : std::initializer_list<TextPart*>{&list, &edit}) {
            part->onChange = [this, part] { log += " =" + part->Text(); };
        }
        drv.onChange = [this] { log += " " + drv.Drive(); };
        for (OptionButton* option : group.buttons) {
            option->onClick = [this, option] { log += " " + option->Name() + "!"; };
        }
        ok.onClick = [this] { log += " ok!"; };
        spin.onSpinUp = [this] { log += " up!"; };
        spin.onSpinDown = [this] { log += " down!"; };
        grid.onRowClick = [this] { log += " row!"; };
        grid.onClick = [this] { log += " click!"; };
        grid.onMouseDown = [this] { log += " mouse!"; };
        grid.onCurrentCellChange = [this] {
            log += " " + std::to_string(grid.Row()) + std::to_string(grid.Column());
        };
        Open();
    }
    void Press(int key, int shift) {
        if (KeyDown(key, shift)) return;
        const bool character = shift == 0 && (std::isalnum(key) || key == kKeyBackspace);
        if (!character || !KeyPress(static_cast<char>(key))) log += " ~";
    }
    void Keys(auto... keys) { (Press(keys, 0), ...); }
    void Held(int shift, auto... keys) { (Press(keys, shift), ...); }
    static void Fill(ListBox& box, std::string_view items) {
        for (char item : items) box.AddItem({&item, 1});
    }

    const test::TempDrives drives;
    const bool floppy = (drives.MakeDir("a:"), true);  // before the list of drives is made
    ListBox lst{*this, "lst", ListBox::Order::kSorted};
    ComboBox list{*this, "list", ComboBox::Style::kListOnly};
    ComboBox edit{*this, "edit", ComboBox::Style::kEditField};
    DriveList drv{*this, "drv"};
    Grid grid{*this, "grid", 6000, 3000};
    OptionGroup group;
    OptionButton one{*this, "one", "&Order", group}, two{*this, "two", "&Two", group},
        three{*this, "three", "T&hree", group};
    SpinButton spin{*this, "spin"};
    CommandButton ok{*this, "ok", "&OK"};
    string log;
};

TEST_F(Controls, ListsAndGridsMoveByKeysAndStayInside) {
    EXPECT_EQ(grid.Rows() * 100 + grid.Columns() * 10 + grid.FixedColumns(), 221);
    lst.AddItem("G"), lst.SetListIndex(0), Fill(lst, "mbdCaefhijkl"), lst.SetFocus();
    Fill(list, "ABC"), list.SetListIndex(0), Fill(edit, "ABC"), edit.SetListIndex(2);
    grid.SetShape(9, 3, 1, 1), grid.Scrolled(1, 4), grid.SetText(8, 2, "x");
    const std::pair<std::function<void()>, string> cases[] = {
        {[&] {}, " G! lst A! C!"},
        {[&] { Keys(kKeyUp, kKeyDown, kKeyPageUp, kKeyPageDown); }, " f! G! a! k!"},
        {[&] { Keys(kKeyEnd, kKeyHome, kKeyPageUp, kKeyLeft, kKeyRight); }, " m! a! b!"},
        {[&] { Keys('c', 'c', 'z'), Held(kAlt, kKeyUp); }, " C! ~"},
        {[&] { lst.RemoveItem(0), lst.RemoveItem(9), lst.RemoveItem(99), Keys(kKeyDown); }, " d!"},
        {[&] { lst.RemoveItem(2), log += std::to_string(lst.ListIndex()); }, "-1"},
        {[&] { lst.SetListIndex(99), log = std::to_string(lst.ListIndex()), Keys(kKeyDown); },
         "-1 b!"},
        // A text of its own stays when its entry goes; one of the list goes with it.
        {[&] { edit.SetText("own"), edit.RemoveItem(2), edit.SetListIndex(-1); }, " =own"},
        {[&] { edit.SetFocus(), edit.Select(1, 1), Keys('b'); }, " -lst edit =obn"},
        {[&] { list.RemoveItem(0), log = list.Text(), list.SetListIndex(1); }, " C!"},
        {[&] { list.RemoveItem(0), log = list.Text(), list.SetListIndex(-1); }, "C"},
        {[&] { log = list.Text(), list.SetFocus(), Keys('b'); }, " -edit list ~"},
        {[&] { drv.Choose(2), drv.SetDrive("C:\\any"), drv.SetDrive("c:"); }, " -list drv d: c:"},
        {[&] { drv.SetDrive("d"), drv.Choose(9), log += drv.Index() == 2 ? "!" : "?"; }, " d:!"},
        {[&] { grid.SetFocus(), Keys(kKeyDown, kKeyRight, kKeyRight); }, " -drv grid 21 22"},
        {[&] { Keys(kKeyPageDown, kKeyPageDown, kKeyHome, kKeyLeft); }, " 62 82 81"},
        {[&] { Keys(kKeyEnd, kKeyPageUp, kKeyUp), Held(kShift, kKeyUp); }, " 82 42 32 ~"},
        {[&] { grid.SetCell(99, -5), grid.AddRow({"", "new"}, 1); }, " 80"},
        {[&] { grid.AddRow({}, 0), log = grid.Text(1, 0) + grid.Text(2, 1), grid.RemoveRow(0); },
         "new"},
        {[&] { log = grid.Text(1, 1) + grid.Text(9, 2), grid.RemoveRow(9); }, "newx"},
        {[&] { Keys(kKeyRight), grid.RemoveRow(1), grid.Scrolled(1, 0); }, " 81"},
        {[&] { Keys(kKeyPageUp), grid.SetCell(0, 99), grid.ClickCell(2, 3); }, " 61 02"},
        {[&] { Held(kCtrl, kKeySpace), grid.ClickCell(2, 0), Held(kCtrl, kKeySpace); },
         " mouse! 21 row! row!"},
        // Of a group Tab stops at the one that is set, else at the first that can be.
        {[&] { one.SetEnabled(false), Keys(kKeyTab, kKeyTab), Held(kShift, kKeyTab); },
         " -grid two -two spin -spin two"},
        {[&] { Keys(kKeyRight, kKeyDown, kKeyUp, kKeyTab), Held(kShift, kKeyTab); },
         " -two three three! -three two two! -two three three! -three spin -spin three"},
        {[&] { one.SetEnabled(true), Keys(kKeyDown, kKeyLeft), Held(kAlt, kKeyLeft); },
         " -three one one! -one three three! ~"},
        {[&] { spin.Up(), Keys(kKeyUp, kKeyRight, kKeyDown, kKeyLeft, kKeyHome); },
         " -three spin up! up! up! down! down! ~"},
        {[&] { spin.SetVisible(false), Keys(kKeyEnter, kKeyRight), ok.Press(); },
         " -spin ok ok! -ok lst -lst ok ok!"},
        {[&] { Held(kAlt, 'O', 'O', 'T', 'X'), ok.SetFocus(); },
         " -ok one one! -one ok ok! -ok two two! ~ -two ok"},
        {[&] { ok.SetEnabled(false), ok.Press(), Keys(kKeyUp); }, " -ok lst"},
        {[&] { Keys(kKeyF6, kKeyF6, kKeyF6), Held(kShift, kKeyF6, kKeyF6, kKeyF6); },
         " -lst list -list edit -edit lst -lst edit -edit list -list lst"},
        {[&] { Held(kCtrl, kKeyF6), Held(kCtrl, kKeyTab), lst.AddItem("j2"); }, " ~"},
        {[&] { lst.SetFocus(), Keys('j', 'J', 'j', 'z'), lst.Clear(); }, " j! j2! j!"},
        {[&] { log += std::to_string(lst.ListIndex()), Keys(kKeyEnd, 'j'); }, "-1"},
        {[&] { edit.SetFocus(), edit.Select(9, 0), Keys(kKeyBackspace, 'x'); },
         " -lst edit =ob =obx"},
        {[&] { edit.Select(0, 0), Keys(kKeyBackspace), Held(kCtrl, 'A'), Keys('y'); }, " =y"},
        {[&] { drives.MakeDir("z:"), drv.SetDrive("z"); }, " z:"},
        {[&] { drv.Choose(1), drv.Choose(1), drv.Choose(2); }, " -edit drv c: d:"},
        {[&] { Keys(kKeyEscape), log += IsOpen() ? "?" : "closed"; }, "closed"}};
    for (const auto& [deeds, expected] : cases) {
        deeds();
        EXPECT_EQ(std::exchange(log, {}), expected);
    }
    EXPECT_THROW(grid.Text(8, 0), std::out_of_range);
    EXPECT_THROW(grid.SetText(0, 3, ""), std::out_of_range);
    std::filesystem::remove(drives.Folder() / "d");
    drv.Refresh();
    EXPECT_EQ(drv.Items(), (std::vector<string>{"a:", "c:", "d:", "z:"})) << "what is chosen stays";
    for (const string none : {"d:", "x:", ""}) {
        try {
            drv.SetDrive(none), ADD_FAILURE() << none;
        } catch (const errors::FileError& failure) {
            log += string(" ") + failure.what();
        }
    }
    EXPECT_EQ(
        log,
        " d: there is no such drive x: there is no such drive no drive: the path does not name "
        "a drive");
    const Label unplaced(*this, "lblUnplaced", "");
    EXPECT_THROW(Open(), std::logic_error);
}

}  // namespace
