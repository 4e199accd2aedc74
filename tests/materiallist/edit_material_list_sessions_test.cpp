// Long sessions of an operator who does anything at any time: after every step the window, the
// table and a small model of its own agree, and what is saved is what was seen.
#include <algorithm>
#include <random>

#include "tests/materiallist/material_list_window.h"
#include "text/strings.h"

namespace {

using materiallist::FrmEditMaterialList;
using materiallist::TheMaterialList;
using views::Answer;

const std::vector<std::string> kCodes = {"MS", "Ss316", "SS", "Wear 400"};
// Names and ranges of the processes in mm.
struct Range {
    std::string name;
    float least, most;
};
const std::vector<Range> kProcesses = {{"PLASMA", 0, 25}, {"Oxy Fuel", -2, 150}, {"WATER", 0, 0}};

class Operator {
  public:
    Operator(FrmEditMaterialList& window, test::ScriptedScreen& screen, int source, unsigned seed)
        : window_(window), screen_(screen), source_(source), random_(seed), keyboard_(window) {}

    int entries = TheMaterialList().EntryCount;
    bool edited = false;  // so that the list has to be saved

    void Step() {
        switch (Below(12)) {
            case 0:
            case 1:
                Type();
                break;
            case 2:
            case 3:
                Navigate();
                break;
            case 4:
                window_.grdMaterialList.ClickCell(Below(entries + 2), Below(4));
                break;
            case 5:
                window_.grdMaterialList.DoubleClickCell(1 + Below(entries + 1), 1 + Below(3));
                break;
            case 6:
                Pick(window_.cboEditDataType);
                Pick(window_.cboEditDataProcess);
                break;
            case 7:
                if (window_.spinButton.Visible()) edited = true;
                Below(2) == 0 ? window_.spinButton.Up() : window_.spinButton.Down();
                break;
            case 8:
                EnterEditor();
                break;
            default:
                Command();
        }
        Check();
    }

  private:
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

    void Type() {
        const bool taken = !window_.grdMaterialList.HasFocus() ||
                           (entries > 0 && (source_ != 1 || window_.grdMaterialList.Column() != 3));
        const bool typing = window_.grdMaterialList.HasFocus() ||
                            dynamic_cast<views::TextPart*>(window_.Focus()) != nullptr;
        if (typing && taken && window_.Focus() != &window_.txtMinPlateThickness) edited = true;
        static const char* const kTexts[] = {"s", "W", "\b", "99", "-3", "o", "x y", "1e9", "\xE4"};
        keyboard_.Type(kTexts[Below(9)]);
    }

    void Navigate() {
        using namespace views;
        static const int kKeys[] = {kKeyTab,  kKeyEnter, kKeyLeft, kKeyRight,    kKeyUp,
                                    kKeyDown, kKeyHome,  kKeyEnd,  kKeyPageDown, kKeyPageUp};
        const int key = kKeys[Below(10)];
        const bool grid = window_.grdMaterialList.HasFocus();
        if (!grid && dynamic_cast<TextPart*>(window_.Focus()) != nullptr) edited = true;
        if (!grid && (key == kKeyEnter || key == kKeyTab)) return;  // would press a button
        const int row = window_.grdMaterialList.Row();
        const int column = window_.grdMaterialList.Column();
        keyboard_.Press(key, Below(4) == 0 ? kCtrl : Below(4) == 0 ? kShift : 0);
        const bool commits =
            key == kKeyTab || key == kKeyEnter || (key >= kKeyLeft && key <= kKeyDown);
        if (grid && commits && row >= 1 && row <= entries) CheckCommitted(row, column);
    }

    void Pick(views::ComboBox& combo) {
        if (!combo.Visible()) return;
        edited = true;
        combo.Choose(Below(combo.Count()));
    }

    void EnterEditor() {
        switch (Below(4)) {
            case 0:
                window_.cboEditDataType.SetFocus();
                break;
            case 1:
                if (window_.cboEditDataProcess.Visible()) edited = true;
                window_.cboEditDataProcess.SetFocus();
                break;
            case 2:
                window_.txtSpinText.SetFocus();
                break;
            default:
                window_.grdMaterialList.SetFocus();
        }
    }

    void Command() {
        const bool yes = Below(2) == 0;
        switch (Below(6)) {
            case 0:
            case 1:
                if (window_.cmdAdd.Enabled() && entries < 200) ++entries, edited = true;
                window_.cmdAdd.Press();
                break;
            case 2:
                window_.cmdCopy.Press();
                break;
            case 3:
                if (window_.cmdPaste.Enabled()) ++entries, edited = true;
                window_.cmdPaste.Press();
                break;
            case 4:
                if (!window_.cmdDelete.Enabled()) break;
                ASSERT_GT(entries, 0);
                screen_.answers = {yes ? Answer::kYes : Answer::kNo};
                if (yes) --entries, edited = true;
                window_.cmdDelete.Press();
                break;
            default:
                window_.chkTracePlate.Toggle();
                window_.grdMaterialList.SetFocus();
        }
    }

    // A cell that was left by a key holds a value of the tables.
    void CheckCommitted(int row, int column) {
        const auto& entry = TheMaterialList().Entry(row);
        const std::string type(text::Trim(entry.MaterialType.View()));
        const std::string name(text::Trim(entry.ProcessName.View()));
        if (column == 1) {
            EXPECT_EQ(std::count(kCodes.begin(), kCodes.end(), type), 1) << type;
        }
        const auto process = std::find_if(kProcesses.begin(), kProcesses.end(),
                                          [&](const Range& range) { return range.name == name; });
        if (column == 2) {
            EXPECT_NE(process, kProcesses.end()) << name;
        }
        if (column >= 2 && source_ != 1 && process != kProcesses.end()) {
            EXPECT_GE(entry.Thickness, process->least) << name;
            EXPECT_LE(entry.Thickness, process->most) << name;
        }
    }

    void Check() {
        const views::Grid& grid = window_.grdMaterialList;
        EXPECT_EQ(TheMaterialList().EntryCount, entries);
        EXPECT_EQ(grid.Rows(), std::max(entries, 1) + 1);
        if (edited) {
            EXPECT_TRUE(materiallist::MaterialListChanged);
        }
        EXPECT_TRUE(window_.Focus() != nullptr && window_.Focus()->CanTakeFocus());
        for (int i = 1; i <= entries; ++i) {
            EXPECT_EQ(grid.Text(i, 0), std::to_string(i));
            const auto& entry = TheMaterialList().Entry(i);
            // A text beyond its width is cut in the entry only.
            EXPECT_EQ(text::Trim(grid.Text(i, 1).substr(0, 32)),
                      text::Trim(entry.MaterialType.View()));
            EXPECT_EQ(text::Trim(grid.Text(i, 2).substr(0, 64)),
                      text::Trim(entry.ProcessName.View()));
            if (source_ == 1) {
                EXPECT_EQ(grid.Text(i, 3), "");
            } else if (entry.Thickness >= 0) {
                EXPECT_EQ(text::ToSingle(text::Val(grid.Text(i, 3))), entry.Thickness);
            }
        }
        const int column = entries > 0 ? grid.Column() : 0;
        EXPECT_EQ(window_.cboEditDataType.Visible(), column == 1);
        EXPECT_EQ(window_.cboEditDataProcess.Visible(), column == 2);
        EXPECT_EQ(window_.txtSpinText.Visible(), column == 3 && source_ != 1);
        EXPECT_EQ(window_.spinButton.Visible(), column == 3 && source_ != 1);
        const std::string& cell = grid.CurrentText();
        if (column == 1) {
            EXPECT_EQ(window_.cboEditDataType.Text(), cell);
        } else if (column == 2) {
            EXPECT_EQ(window_.cboEditDataProcess.Text(), cell);
        } else if (column == 3 && source_ != 1) {
            EXPECT_EQ(window_.txtSpinText.Text(), cell);
        }
    }

    FrmEditMaterialList& window_;
    test::ScriptedScreen& screen_;
    const int source_;
    std::mt19937 random_;
    test::Keyboard keyboard_;
};

class MaterialListSessions : public test::MaterialListWindow {};

TEST_F(MaterialListSessions, AnythingAtAnyTime) {
    for (unsigned seed = 1; seed <= 100 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const int source = 1 + static_cast<int>(seed % 3);
        // Every tenth session works at the capacity.
        const std::string list = seed % 10 == 0 ? ManyEntries(197) : test::kThree;
        if (source == 2) {
            screen.windows.push_back(
                [](views::Form& prompt) { test::Keyboard(prompt).Press(views::kKeyEnter); });
        }
        std::string saved = test::kListHeader;
        Edit(source, list, [&](FrmEditMaterialList& window, auto&) {
            Operator person(window, screen, source, seed);
            person.edited = source == 2;  // the thickness prompt has changed it
            for (int step = 0; step < 200 && !HasFailure(); ++step) {
                SCOPED_TRACE("step " + std::to_string(step));
                person.Step();
            }
            screen.answers.clear();
            if (materiallist::MaterialListChanged || materiallist::NestOptionsChanged) {
                screen.answers = {Answer::kYes};
            }
            for (int i = 1; i <= person.entries; ++i) {
                const auto trimmed = [&](int column) {
                    const std::size_t width = column == 1 ? 32 : 64;
                    return std::string(
                        text::Trim(window.grdMaterialList.Text(i, column).substr(0, width)));
                };
                saved += "\r\r\n[Mat" + std::to_string(i) + "]\r\nType=" + trimmed(1) +
                         "\r\nThickness=" +
                         (source == 1
                              ? ""
                              : materiallist::ThicknessText(TheMaterialList().Entry(i).Thickness)) +
                         "mm\r\nProcess=" + trimmed(2) + "\r\n";
            }
            if (!materiallist::MaterialListChanged) saved = list;
        });
        EXPECT_EQ(files.drives.Read(files.path), saved);
    }
}

}  // namespace
