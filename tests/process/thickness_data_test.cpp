// The thickness data window: what differs from the other grid window, its dialog, and what is
// copied back into the process.
#include "process/thickness_data.h"

#include <gtest/gtest.h>

#include <functional>

#include "process/add_thickness.h"
#include "process/process_table.h"
#include "tests/support/fresh_system.h"
#include "tests/support/scripted_screen.h"
#include "views/application.h"
#include "views/view_procedures.h"

namespace {

using Log = std::vector<std::string>;
using process::FrmAddThickness;
using process::FrmThicknessData;
using process::ProcessRecord;
using process::Shared;
using process::TheProcesses;
using process::ThicknessRow;

std::string ErrorBox(const std::string& text) {
    return test::Box("Error in Thickness Entry", text, "OK", "exclamation");
}

class ThicknessWindow : public ::testing::Test {
  protected:
    ThicknessWindow() { test::FreshSystem(); }

    // One more process, which is the current one then.
    static ProcessRecord& AddProcess(const std::vector<ThicknessRow>& rows) {
        Shared().CurrentProcess = ++TheProcesses().ProcessCount;
        ProcessRecord& process = TheProcesses().Process(Shared().CurrentProcess);
        process.Name = "Plasma";
        for (const ThicknessRow& row : rows) process.Row(++process.ThicknessCount) = row;
        return process;
    }
    static std::vector<ThicknessRow> ManyRows(int count) {
        std::vector<ThicknessRow> rows;
        for (int n = 1; n <= count; ++n) rows.push_back({static_cast<float>(n), 1, 2, 3, 4});
        return rows;
    }
    void Open(const std::function<void()>& steps) {
        FrmThicknessData form;
        window = &form;
        screen.windows.push_back([&](views::Form&) { steps(); });
        views::Guard([&] { views::ShowModal(form); });
        EXPECT_FALSE(views::ApplicationEnded());
        window = nullptr;
    }
    // Adds with the text typed into the dialog, cancelled if the dialog does not take it.
    void Add(const std::string& text) {
        screen.windows.push_back([text](views::Form& form) {
            auto& dialog = dynamic_cast<FrmAddThickness&>(form);
            test::Keyboard keyboard(dialog);
            keyboard.Type(text);
            keyboard.Press(views::kKeyEnter);
            if (!dialog.IsOpen()) return;
            EXPECT_EQ(dialog.Focus(), &dialog.txtNewThickness);
            EXPECT_EQ(dialog.txtNewThickness.SelLength(), dialog.txtNewThickness.Text().size());
            keyboard.Press(views::kKeyEscape);
        });
        Push(window->cmdThkAdd);
    }
    static void Push(views::CommandButton& button) {
        views::Guard([&] { button.Press(); });
    }
    void Click(int row, int column) {
        views::Guard([&] { window->grdThicknessData.ClickCell(row, column); });
    }
    void Press(int key, int shift = 0) { test::Keyboard(*window).Press(key, shift); }
    void Type(std::string_view text) { test::Keyboard(*window).Type(text); }

    std::string Row(int row) const {
        std::string texts;
        for (int column = 0; column < 5; ++column) {
            texts += (column > 0 ? "|" : "") + window->grdThicknessData.Text(row, column);
        }
        return texts;
    }
    // The column of thicknesses.
    std::string Thicknesses() const {
        std::string texts;
        for (int row = 1; row < window->grdThicknessData.Rows(); ++row) {
            texts += window->grdThicknessData.Text(row, 0) + " ";
        }
        return texts;
    }
    std::string Cell() const {
        return std::to_string(window->grdThicknessData.Row()) + "," +
               std::to_string(window->grdThicknessData.Column());
    }

    test::ScriptedScreen screen;
    FrmThicknessData* window = nullptr;
};

TEST_F(ThicknessWindow, ShowsTheCurrentProcess) {
    ProcessRecord& process = AddProcess({{.5f, 2.5f, 1200, 5, 1.5f}, {-2, -1, 1e7f, 0, .25f}});
    process.Name = std::string("Plasma 1\0left over", 18);
    const ProcessRecord before = process;
    Open([&] {
        const auto& grid = window->grdThicknessData;
        EXPECT_EQ(window->Caption(), "Thickness Data for Process Plasma 1");
        EXPECT_EQ(Row(0),
                  "Thickness         (mm)|Pierce Time (secs)|Feed Rate (mm/min)|"
                  "Leadin Length (mm)|Nozzle Size (mm)");
        EXPECT_EQ(Row(1), "0.5|2.5|1200|5|1.5");
        EXPECT_EQ(Row(2), "0|0|1E+07|0|0.25");
        EXPECT_EQ(grid.Rows(), 3);
        EXPECT_EQ(grid.RowHeight(0), 600);
        EXPECT_EQ(grid.ColumnWidth(4), 1620);
        EXPECT_EQ(window->Focus(), &grid);
        EXPECT_EQ(Cell(), "1,1");
        EXPECT_EQ(window->txtEditData.Text(), "2.5");
        EXPECT_TRUE(window->cmdThkDel.Enabled()) << "a cell was entered";
        Press(views::kKeyDown);
        Press(views::kKeyRight);
    });
    EXPECT_EQ(process, before) << "looking changes nothing, not even what is shown as 0";
    EXPECT_FALSE(Shared().ProcessChanged);
}

TEST_F(ThicknessWindow, OnlyTheBoxPutsNumbersInOrder) {
    ProcessRecord& process = AddProcess({{5, 1, 2, 3, 4}, {10, 1, 2, 3, 4}});
    Open([&] {
        Click(1, 1);
        Type("1a-2 \xFC");
        EXPECT_EQ(Row(1), "5|12|2|3|4");
        Type("..0");
        EXPECT_EQ(window->txtEditData.Text(), "12..0");
        Press(views::kKeyTab);
        Click(2, 4);
        Click(1, 1);
        EXPECT_EQ(Row(1), "5|12..0|2|3|4") << "leaving it from the grid does not touch it";
        Type("123456789012345");
        EXPECT_EQ(Row(1), "5|1234567890123|2|3|4") << "13 characters";
        window->txtEditData.SetFocus();
        Type("7.");
        Press(views::kKeyTab);
        Type("-3");
        Press(views::kKeyTab);
        Type("12.5mm");
        Press(views::kKeyTab);
        EXPECT_EQ(Cell(), "1,4");
        Type(".5");
        Press(views::kKeyEnter);
        EXPECT_EQ(Row(1), "5|7|0|12.5|0.5");
        EXPECT_EQ(Cell(), "2,4");
        Press(views::kKeyUp);
        Press(views::kKeyTab, views::kShift);
        Type("123456789012345");
        EXPECT_EQ(window->txtEditData.Text(), "12345678901235") << "cut before each key";
        Press(views::kKeyDown, views::kCtrl);
        EXPECT_EQ(Cell(), "2,3");
        EXPECT_EQ(Row(1), "5|7|0|1.234568E+13|0.5");
        Press(views::kKeyDown);
        EXPECT_EQ(Cell(), "2,3") << "kept inside";
        Type("8");  // still in the box when the window is closed by its frame
    });
    EXPECT_EQ(process.Row(1), (ThicknessRow{5, 7, 0, 1.234568e13f, .5f}));
    EXPECT_EQ(process.Row(2), (ThicknessRow{10, 1, 2, 8, 4}));
    EXPECT_TRUE(Shared().ProcessChanged);
    EXPECT_TRUE(process::IsDigitsAndPoints("10.5.") && !process::IsDigitsAndPoints("1E5"));
}

// What counts as a change: only then the grid is copied back.
TEST_F(ThicknessWindow, WhatCountsAsAChange) {
    struct Case {
        const char* name;
        std::function<void()> steps;
        bool changes;
    };
    const Case cases[] = {
        {"clicks", [this] { Click(1, 0), Click(1, 2); }, false},
        {"keys that move in the grid", [this] { Press(views::kKeyTab); }, false},
        {"refused keys in the grid", [this] { Type("x-"); }, false},
        {"a digit in the grid", [this] { Type("4"); }, true},
        {"Backspace in the grid", [this] { Press(views::kKeyBackspace); }, true},
        {"an arrow in the box", [this] { window->txtEditData.SetFocus(), Press(views::kKeyLeft); },
         true},
        {"a paste by mouse", [this] { window->txtEditData.Edited("9", 1); }, true},
        {"Add, cancelled", [this] { Add(""); }, true},
        {"Delete", [this] { Push(window->cmdThkDel); }, true},
    };
    for (const Case& c : cases) {
        process::Shared() = {};
        AddProcess({{5, 1, 2, 3, 4}});
        Open(c.steps);
        EXPECT_EQ(Shared().ProcessChanged, c.changes) << c.name;
    }
    screen.TakeLog();
}

TEST_F(ThicknessWindow, AddsInOrder) {
    ProcessRecord& process = AddProcess({});
    Open([&] {
        EXPECT_EQ(Row(1), "||||");
        EXPECT_FALSE(window->txtEditData.Enabled());
        EXPECT_FALSE(window->cmdThkDel.Enabled());
        Click(1, 0);
        Click(1, 3);
        Type("5");
        Press(views::kKeyDown);
        EXPECT_EQ(Row(1), "||||");
        EXPECT_FALSE(window->cmdThkDel.Enabled());
        Add("10");
        EXPECT_EQ(window->grdThicknessData.Rows(), 2) << "the empty row is gone";
        EXPECT_EQ(Row(1), "10|0|0|0|0");
        EXPECT_TRUE(window->txtEditData.Enabled());
        EXPECT_EQ(window->txtEditData.Text(), "0");
        EXPECT_TRUE(Shared().ProcessChanged);
        Add("2");
        Add("5mm");
        Add("40");
        Add(".50");
        EXPECT_EQ(Thicknesses(), "0.5 2 5 10 40 ");
        EXPECT_EQ(process.ThicknessCount, 5);
        EXPECT_EQ(screen.TakeLog(), Log{});

        // A row in front of the one typed in: typing does not go on in its new neighbour.
        Click(1, 1);
        Type("7");
        Add("0.1");
        window->grdThicknessData.SetFocus();
        Type("3");
        EXPECT_EQ(Row(1), "0.1|3|0|0|0");
        EXPECT_EQ(Row(2), "0.5|7|0|0|0");

        const std::string tooSmall = ErrorBox("Thickness must bigger than 0.");
        for (const char* text : {"", "0", "-1", "mm", "1e-60"}) {
            Add(text);
            EXPECT_EQ(screen.TakeLog(), Log{tooSmall}) << text;
        }
        Add("10");
        Add("0.50");
        Add("2.00000001");
        EXPECT_EQ(screen.TakeLog(), (Log{ErrorBox("Thickness 10 already exist."),
                                         ErrorBox("Thickness .5 already exist."),
                                         ErrorBox("Thickness 2 already exist.")}));
        Add("1.2345678901234567");
        EXPECT_EQ(screen.TakeLog(), Log{});
        Add("1.2345678901234567");
        EXPECT_EQ(screen.TakeLog(), Log{ErrorBox("Thickness 1.234568 already exist.")});
        EXPECT_EQ(Thicknesses(), "0.1 0.5 1.234568 2 5 10 40 ");
        EXPECT_EQ(process.ThicknessCount, 7);
    });
    EXPECT_EQ(process.Row(1), (ThicknessRow{.1f, 3, 0, 0, 0}));
    EXPECT_EQ(process.Row(2), (ThicknessRow{.5f, 7, 0, 0, 0}));
    EXPECT_EQ(process.Row(7).Thickness, 40);
}

TEST_F(ThicknessWindow, TheDialogKeepsThirteenCharacters) {
    AddProcess({});
    Open([&] {
        screen.windows.push_back([](views::Form& form) {
            auto& dialog = dynamic_cast<FrmAddThickness&>(form);
            EXPECT_EQ(dialog.Caption(), "Add New Thickness");
            EXPECT_EQ(dialog.Label1.Caption(), "Enter New Thickness ?");
            dialog.txtNewThickness.Edited("000000000012345", 15);
            EXPECT_EQ(dialog.txtNewThickness.Text(), "0000000000123");
            EXPECT_EQ(dialog.txtNewThickness.SelStart(), 13u);
            test::Keyboard(dialog).Press(views::kKeyTab);
            test::Keyboard(dialog).Press(views::kKeySpace);  // on the button
        });
        Push(window->cmdThkAdd);
        EXPECT_EQ(Thicknesses(), "123 ");
    });
    EXPECT_EQ(screen.TakeLog(), Log{});
}

TEST_F(ThicknessWindow, DeletesWithoutAQuestion) {
    ProcessRecord& process = AddProcess({{1, 1, 1, 1, 1}, {2, 2, 2, 2, 2}, {3, 3, 3, 3, 3}});
    Open([&] {
        auto& grid = window->grdThicknessData;
        Click(2, 0);
        EXPECT_EQ(grid.Selection(), (views::Grid::Block{2, 1, 2, 4}));
        Push(window->cmdThkDel);
        EXPECT_EQ(Thicknesses(), "1 3 ");
        EXPECT_EQ(process.ThicknessCount, 2);
        EXPECT_EQ(window->txtEditData.Text(), "3");
        EXPECT_FALSE(window->cmdThkDel.Enabled());
        EXPECT_FALSE(grid.Highlight());
        Push(window->cmdThkDel);
        EXPECT_EQ(process.ThicknessCount, 2) << "the next row is to be chosen first";
        Click(2, 3);
        Push(window->cmdThkDel);
        EXPECT_EQ(Cell(), "1,3");
        EXPECT_EQ(window->txtEditData.Text(), "1");
        Click(1, 1);
        Push(window->cmdThkDel);
        EXPECT_EQ(grid.Rows(), 2);
        EXPECT_EQ(Row(1), "||||");
        EXPECT_EQ(process.ThicknessCount, 0);
        EXPECT_FALSE(window->txtEditData.Enabled());
        EXPECT_EQ(window->txtEditData.Text(), "");
    });
    EXPECT_TRUE(Shared().ProcessChanged);
    EXPECT_EQ(screen.TakeLog(), Log{});
}

TEST_F(ThicknessWindow, TheLastProcessDecidesWhetherThereIsRoom) {
    AddProcess({{5, 1, 2, 3, 4}});
    AddProcess(ManyRows(99));
    Open([&] {
        Add("50");
        EXPECT_EQ(screen.TakeLog().size(), 1u) << "exists already";
        EXPECT_TRUE(window->cmdThkAdd.Enabled());
        Add("99.5");
        EXPECT_EQ(TheProcesses().Process(2).ThicknessCount, 100);
        EXPECT_FALSE(window->cmdThkAdd.Enabled());
        EXPECT_NE(window->Focus(), &window->cmdThkDel) << "where the next key would delete";
        Click(100, 4);
        Type("9");
    });
    EXPECT_EQ(TheProcesses().Process(2).Row(100), (ThicknessRow{99.5f, 0, 0, 0, 9}));

    Shared().ProcessChanged = false;
    Shared().CurrentProcess = 1;
    Open([&] {
        Push(window->cmdThkAdd);
        EXPECT_FALSE(window->cmdThkAdd.Enabled());
    });
    EXPECT_EQ(TheProcesses().Process(1).ThicknessCount, 1);
    EXPECT_FALSE(Shared().ProcessChanged) << "the dialog was not shown";

    // The current process being full while the last one is not.
    TheProcesses().Process(1).ThicknessCount = 100;
    TheProcesses().Process(2).ThicknessCount = 3;
    Open([&] {
        Push(window->cmdThkAdd);
        EXPECT_FALSE(window->cmdThkAdd.Enabled());
    });
    EXPECT_EQ(TheProcesses().Process(1).ThicknessCount, 100);
    EXPECT_FALSE(Shared().ProcessChanged);
}

}  // namespace
