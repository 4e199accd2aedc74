// The rules between focus, keys, clicks and changes that no window of the system shows by itself.
#include <gtest/gtest.h>

#include <stdexcept>

#include "errors/errors.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/temp_drives.h"
#include "views/basic_controls.h"
#include "views/grid.h"
#include "views/keys.h"
#include "views/lists.h"
#include "views/printer.h"

namespace {

using namespace views;

// A dialog that notes its events in order.
struct Dialog : Form {
    Dialog() : Form("frmDialog", "Dialog") {
        closeButton = &cmdCancel;
        SetLayout(Column({lblName, txtName, chkOn, optA, optB, optC, lstItems, cmdOk, cmdCancel}));
        for (Control* control : Controls()) {
            control->onGotFocus = [this, control] { log += " got " + control->Name(); };
            control->onLostFocus = [this, control] { log += " lost " + control->Name(); };
        }
        txtName.onKeyDown = [this](KeyEvent& event) {
            log += " down " + std::to_string(event.key);
            event.handled = event.key == kKeyDown;
        };
        txtName.onKeyPress = [this](CharEvent& event) {
            log += " press " + std::to_string(event.character);
            event.handled = event.character == 'x';
        };
        txtName.onChange = [this] { log += " change " + txtName.Text(); };
        chkOn.onClick = [this] { log += " click chkOn"; };
        optA.onClick = [this] { log += " click optA"; };
        optB.onClick = [this] { log += " click optB"; };
        optC.onClick = [this] { log += " click optC"; };
        lstItems.onClick = [this] { log += " click lstItems"; };
        cmdOk.onClick = [this] { log += " click cmdOk"; };
        cmdCancel.onClick = [this] { log += " click cmdCancel", Close(); };
    }
    void Unload() override { log += " unload"; }
    using Form::defaultButton;

    Label lblName{*this, "lblName", "&Name:"};
    TextBox txtName{*this, "txtName"};
    CheckBox chkOn{*this, "chkOn", "&On"};
    OptionGroup group;
    OptionButton optA{*this, "optA", "&Arc", group};
    OptionButton optB{*this, "optB", "B && &C", group};
    OptionButton optC{*this, "optC", "C", group};
    ListBox lstItems{*this, "lstItems"};
    CommandButton cmdOk{*this, "cmdOk", "O&k"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
    std::string log;
};

TEST(Controls, RunTheirHandlersInOrder) {
    test::ScriptedScreen screen;
    Dialog d;
    const auto key = [&](int code, int shift = 0) {
        if (!d.KeyDown(code, shift) && shift == 0) d.KeyPress(static_cast<char>(code));
    };
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[&] { key('A'); }, " down 65 press 65 change A"},
        {[&] { d.KeyPress('x'); }, " press 120"},
        {[&] { key(kKeyDown); }, " down 40"},
        {[&] { key(kKeyBackspace); }, " down 8 press 8 change "},
        {[&] { key(kKeyEnter); }, " down 13 press 13"},  // no default button: a handler may want it
        {[&] { d.defaultButton = &d.cmdOk, key(kKeyEnter); },
         " down 13 lost txtName got cmdOk click cmdOk"},
        {[&] { key(kKeyEnter); }, " click cmdOk"},
        {[&] { key('N', kAlt); }, " lost cmdOk got txtName"},  // of the label before it
        {[&] { key('K', kAlt); }, " down 75 lost txtName got cmdOk click cmdOk"},
        {[&] { key('&', kAlt), key('B', kAlt); }, ""},
        {[&] { d.cmdOk.SetEnabled(false); }, " lost cmdOk got cmdCancel"},
        {[&] { d.cmdOk.Press(), key('K', kAlt); }, ""},
        {[&] { d.optB.SetValue(true), d.optB.SetValue(true); }, " click optB click optB"},
        {[&] { d.optB.SetValue(false), d.chkOn.SetValue(true); }, ""},
        {[&] { key('A', kAlt); }, " lost cmdCancel got optA click optA"},
        {[&] { d.optA.Pick(); }, ""},
        {[&] { d.optB.SetEnabled(false), key(kKeyRight); }, " lost optA got optC click optC"},
        {[&] { key(kKeyDown); }, " lost optC got optA click optA"},
        {[&] { key(kKeyTab), key(kKeyTab); },
         " lost optA got lstItems lost lstItems got cmdCancel"},
        {[&] { key(kKeyTab); }, " lost cmdCancel got txtName"},
        {[&] { key(kKeyTab, kShift), key(kKeyTab, kCtrl); }, " down 9 lost txtName got cmdCancel"},
        {[&] { d.optA.SetValue(false), d.chkOn.SetFocus(); }, " lost cmdCancel got chkOn"},
        {[&] { key(kKeyTab); }, " lost chkOn got optA"},  // the first of a group without a choice
        {[&] { key(kKeyTab, kShift); }, " lost optA got chkOn"},
        {[&] { key(kKeyLeft), d.chkOn.Toggle(); },
         " lost chkOn got txtName lost txtName got chkOn "
         "click chkOn"},
        {[&] { d.txtName.SetText("abc"), d.txtName.SetText("abc"); }, " change abc"},
        {[&] { d.txtName.Edited("pasted\r\n[Section]", 17); }, " change pasted"},
        {[&] { d.lstItems.AddItem("one"), d.lstItems.AddItem("Two"); }, ""},
        {[&] { d.lstItems.SetListIndex(1), d.lstItems.SetListIndex(-1); }, " click lstItems"},
        {[&] { d.lstItems.Choose(0), d.KeyPress('t'), d.KeyPress('t'), key(kKeyHome); },
         " lost chkOn got lstItems click lstItems click lstItems click lstItems"},
        {[&] { key(kKeyEscape); }, " lost lstItems got cmdCancel click cmdCancel unload"},
        {[&] { key('A'), d.RequestClose(); }, ""},
    };
    screen.windows.push_back([&](Form&) {
        d.log.clear();
        int n = 0;
        for (const auto& [deed, log] : cases) {
            deed();
            EXPECT_EQ(std::exchange(d.log, {}), log) << "deed " << n++;
        }
    });
    ShowModal(d);
    EXPECT_EQ(d.left, 300);
    EXPECT_EQ(d.top, 250);
}

TEST(Controls, ComboBoxesTellPickingFromTyping) {
    Dialog d;
    ComboBox list(d, "cboList", ComboBox::Style::kListOnly),
        edit(d, "cboEdit", ComboBox::Style::kEditField);
    std::string log;
    for (ComboBox* combo : {&list, &edit}) {
        combo->onClick = [&log, combo] { log += " click " + combo->Text(); };
        combo->onChange = [&log, combo] { log += " change " + combo->Text(); };
        for (const char* item : {"A", "B", "C"}) combo->AddItem(item);
    }
    list.SetListIndex(0), edit.SetListIndex(2), edit.SetText("typed");
    list.RemoveItem(0), edit.RemoveItem(2), edit.Clear();
    EXPECT_EQ(log, " click A click C change typed");
    EXPECT_EQ(list.Text() + edit.Text() + std::to_string(list.ListIndex()), "typed-1");
    ListBox sorted(d, "lstSorted", ListBox::Order::kSorted);
    for (const char* item : {"b", "C", "a"}) sorted.AddItem(item);
    EXPECT_EQ(sorted.Items(), (std::vector<std::string>{"a", "b", "C"}));
    EXPECT_THROW(d.Open(), std::logic_error) << "no layout places the combos";
}

TEST(Controls, DriveListsRefuseWhatIsNotThere) {
    const test::TempDrives drives;
    Dialog d;
    DriveList list(d, "drvList");
    int changes = 0;
    list.onChange = [&] { ++changes; };
    for (const char* drive : {"x:", "", "1:"})
        EXPECT_THROW(list.SetDrive(drive), errors::FileError);
    list.SetDrive("C:\\anything"), list.SetDrive("D:");
    std::filesystem::remove(drives.Folder() / "d");
    list.Refresh();
    EXPECT_EQ(list.Items(), (std::vector<std::string>{"c:", "d:"})) << "what is chosen stays";
    EXPECT_THROW(list.SetDrive("d:"), errors::FileError);
    EXPECT_EQ(changes, 1);
}

TEST(Controls, GridsKeepTheirCellInside) {
    Dialog d;
    Grid grid(d, "grdData", 6000, 3000);
    grid.SetShape(4, 3, 1, 1);
    grid.SetText(3, 2, "x");
    grid.AddRow({"", "new"}, 1);
    EXPECT_EQ(grid.Text(4, 2) + grid.Text(1, 1), "xnew");
    grid.SetCell(99, -5);
    grid.RemoveRow(4);
    EXPECT_EQ(grid.Row() * 10 + grid.Column(), 30);
    EXPECT_THROW(grid.Text(4, 0), std::out_of_range);
    EXPECT_THROW(grid.SetText(0, 3, ""), std::out_of_range);
}

// A failure in a window on top of another ends both, and what stands behind the call that showed
// it is left.
TEST(Controls, AnUnexpectedFailureEndsTheRunInOrder) {
    test::ScriptedScreen screen;
    Dialog below, above;
    std::string done;
    OnFailure([&] { done += "saved"; });
    above.cmdOk.onClick = [] { throw errors::FatalError("c:\\x: the disk is gone"); };
    below.cmdOk.onClick = [&] { ShowModal(above), done += "went on"; };
    screen.windows.push_back([&](Form&) { Guard([&] { below.cmdOk.Press(); }); });
    screen.windows.push_back([&](Form&) { Guard([&] { above.cmdOk.Press(); }); });
    Guard([&] { ShowModal(below); });
    EXPECT_EQ(screen.log,
              std::vector<std::string>{"Quarvel System Manager|c:\\x: the disk is gone"});
    EXPECT_EQ(done, "saved");
    EXPECT_FALSE(below.IsOpen() || above.IsOpen());
    EXPECT_EQ(ExitStatus(), 1);
}

TEST(Printers, MoveToColumnsAndPages) {
    struct Kept : Printer {
        void ShowSetup() override {}
        void Send(const std::vector<Page>& sent) override { pages = sent; }
        std::vector<Page> pages;
    } printer;
    printer.Print("name"), printer.MoveTo(8), printer.PrintLine("size");
    printer.Print("a longer name"), printer.MoveTo(5);  // passed already
    printer.PrintLine("x"), printer.NewPage(), printer.Print("end"), printer.EndDocument();
    EXPECT_EQ(printer.pages,
              (std::vector<Printer::Page>{{"name   size", "a longer name", "    x"}, {"end"}}));
    printer.EndDocument();
    EXPECT_EQ(printer.pages, std::vector<Printer::Page>{{}});
}

}  // namespace
