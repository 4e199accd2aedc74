// Operators without a plan in the two grid windows: whatever they press, grid, box and table agree
// after every step, and what the grid showed at the end is what the file gives back.
#include "views/grid_editor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "app/system_config.h"
#include "materialtypes/edit_material_types.h"
#include "materialtypes/material_type_table.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "process/thickness_data.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/temp_drives.h"
#include "text/numbers.h"
#include "views/application.h"
#include "views/view_procedures.h"

namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr unsigned kSessions = 100;
constexpr int kSteps = 300;

// Answers every question with Yes or No as it comes.
class CarelessScreen : public test::ScriptedScreen {
  public:
    explicit CarelessScreen(std::mt19937& dice) : dice_(dice) {}
    views::Answer Show(const views::Message& message) override {
        if (message.buttons == views::Buttons::kOk) return views::Answer::kOk;
        const bool save = message.text.find("Save") != std::string::npos;
        return save || dice_() % 3 == 0 ? views::Answer::kYes : views::Answer::kNo;
    }

  private:
    std::mt19937& dice_;
};

// What both windows have.
struct Window {
    views::Form& form;
    views::Grid& grid;
    views::TextBox& box;
    views::CommandButton &add, &remove;
    std::function<int()> count;
    int capacity;
};

class Operator {
  public:
    Operator(std::mt19937& dice, test::ScriptedScreen& screen) : dice_(dice), screen_(screen) {}

    void Work(const Window& window) {
        for (int step = 0; step < kSteps; ++step) {
            const auto deed = dice_() % 100;
            views::Guard([&] { Do(window, deed); });
            ASSERT_FALSE(views::ApplicationEnded()) << "step " << step << ", deed " << deed;
            ASSERT_TRUE(window.form.IsOpen()) << "step " << step << ", deed " << deed;
            Check(window);
            if (::testing::Test::HasFailure()) FAIL() << "step " << step << ", deed " << deed;
        }
    }

  private:
    std::string Scrawl() {
        static constexpr std::string_view kCharacters = "0123456789.5-eAz \xFC\b";
        std::string text;
        for (unsigned n = dice_() % 16; n > 0; --n)
            text += kCharacters[dice_() % kCharacters.size()];
        return text;
    }

    void Do(const Window& window, std::uint_fast32_t deed) {
        test::Keyboard keyboard(window.form);
        const int row = static_cast<int>(dice_() % static_cast<unsigned>(window.grid.Rows() + 1));
        const int column = static_cast<int>(dice_() % static_cast<unsigned>(window.grid.Columns()));
        if (deed < 25) {
            window.grid.ClickCell(row, column);
        } else if (deed < 50) {
            for (char c : Scrawl()) {
                c == '\b' ? keyboard.Press(views::kKeyBackspace) : keyboard.Type({&c, 1});
            }
        } else if (deed < 75) {
            static constexpr int kKeys[] = {views::kKeyTab,  views::kKeyEnter, views::kKeyLeft,
                                            views::kKeyUp,   views::kKeyRight, views::kKeyDown,
                                            views::kKeyHome, views::kKeyEnd,   views::kKeyPageDown};
            static constexpr int kShifts[] = {0, 0, 0, views::kShift, views::kCtrl};
            const int key = kKeys[dice_() % std::size(kKeys)];
            // Enter would go on to Close from a button.
            if (key != views::kKeyEnter || window.grid.HasFocus() || window.box.HasFocus()) {
                keyboard.Press(key, kShifts[dice_() % std::size(kShifts)]);
            }
        } else if (deed < 82) {
            if (window.box.Enabled()) window.box.SetFocus();
        } else if (deed < 85) {
            if (window.box.Enabled()) window.box.Edited(Scrawl(), 0);
        } else if (deed < 93) {
            screen_.windows.push_back([text = Scrawl()](views::Form& dialog) {
                test::Keyboard(dialog).Type(text);
                test::Keyboard(dialog).Press(views::kKeyEnter);
            });
            window.add.Press();
            screen_.windows.clear();  // when there was no room for it
        } else {
            window.remove.Press();
        }
    }

    static void Check(const Window& window) {
        const int count = window.count();
        EXPECT_GE(count, 0);
        EXPECT_LE(count, window.capacity);
        EXPECT_EQ(window.grid.Rows(), std::max(count, 1) + 1);
        EXPECT_GE(window.grid.Row(), 1);
        EXPECT_GE(window.grid.Column(), 1);
        EXPECT_EQ(window.box.Enabled(), count > 0);
        EXPECT_EQ(window.box.Text(), window.grid.CurrentText());
        EXPECT_TRUE(count > 0 || !window.remove.Enabled());
        EXPECT_NE(window.form.Focus(), nullptr);
        EXPECT_TRUE(window.form.Focus() == nullptr || window.form.Focus()->CanTakeFocus());
    }

    std::mt19937& dice_;
    test::ScriptedScreen& screen_;
};

Rows Shown(const views::Grid& grid, int count) {
    Rows rows;
    for (int row = 1; row <= count; ++row) {
        rows.emplace_back();
        for (int column = 0; column < grid.Columns(); ++column) {
            rows.back().push_back(grid.Text(row, column));
        }
    }
    return rows;
}

// The file keeps 7 digits of what a 32-bit float can hold.
void ExpectSameNumber(double shown, double kept) {
    shown = std::clamp(shown, -3.402823e38, 3.402823e38);
    EXPECT_NEAR(shown, kept, std::abs(shown) * 1e-6 + 1e-37);
}

class CarelessOperators : public ::testing::Test {
  protected:
    CarelessOperators() {
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
        materialtypes::ResetMaterialTypes();
        process::ResetProcesses();
        drives.MakeDir("c:\\tolvarin\\system");
    }
    ~CarelessOperators() override {
        materialtypes::ResetMaterialTypes();
        process::ResetProcesses();
        app::TheConfig() = {};
    }
    test::TempDrives drives;
};

TEST_F(CarelessOperators, InTheMaterialTypes) {
    for (unsigned seed = 1; seed <= kSessions && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 dice(seed);
        CarelessScreen screen(dice);
        // Begins with what the session before has saved.
        if (seed == 1) materialtypes::WriteMaterialTypes();
        Rows shown;
        const auto open =
            [&](const std::function<void(materialtypes::FrmEditMaterialTypes&)>& work) {
                materialtypes::FrmEditMaterialTypes form;
                screen.windows.push_back([&](views::Form&) {
                    work(form);
                    shown = Shown(form.grdMaterialTypes, materialtypes::TheMaterialTypes().Count);
                });
                views::Guard([&] { views::ShowModal(form); });
            };
        open([&](materialtypes::FrmEditMaterialTypes& form) {
            Operator(dice, screen)
                .Work({form, form.grdMaterialTypes, form.txtEditData, form.cmdAdd, form.cmdDelete,
                       [] { return materialtypes::TheMaterialTypes().Count; }, 60});
        });
        const Rows before = shown;
        open([](materialtypes::FrmEditMaterialTypes&) {});
        ASSERT_EQ(before.size(), shown.size());
        for (std::size_t row = 0; row < shown.size(); ++row) {
            std::string description = before[row][1].substr(0, 50);
            EXPECT_EQ(before[row][0], shown[row][0]);
            EXPECT_EQ(views::CleanText(description), shown[row][1]);
            ExpectSameNumber(text::Val(before[row][2]), text::Val(shown[row][2]));
        }
    }
}

TEST_F(CarelessOperators, InTheThicknesses) {
    auto& table = process::TheProcesses();
    table.ProcessCount = process::CurrentProcess = 1;
    table.Process(1).Name = "Plasma";
    process::InitProcessRecord(1, 0);
    for (unsigned seed = 1; seed <= kSessions && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 dice(seed);
        CarelessScreen screen(dice);
        Rows shown;
        process::FrmThicknessData form;
        screen.windows.push_back([&](views::Form&) {
            Operator(dice, screen)
                .Work({form, form.grdThicknessData, form.txtEditData, form.cmdThkAdd,
                       form.cmdThkDel, [&] { return table.Process(1).ThicknessCount; }, 100});
            shown = Shown(form.grdThicknessData, table.Process(1).ThicknessCount);
        });
        views::Guard([&] { views::ShowModal(form); });
        process::WriteProcessFile();
        ASSERT_TRUE(process::ReadProcessFile());
        const process::ProcessRecord& kept = table.Process(1);
        ASSERT_EQ(static_cast<std::size_t>(kept.ThicknessCount), shown.size());
        for (int row = 1; row <= kept.ThicknessCount; ++row) {
            const auto& texts = shown[static_cast<std::size_t>(row - 1)];
            const process::ThicknessRow& values = kept.Row(row);
            ExpectSameNumber(text::Val(texts[0]), values.Thickness);
            // The file's rows have no signs behind the thickness.
            ExpectSameNumber(std::abs(text::Val(texts[1])), values.PierceTime);
            ExpectSameNumber(std::abs(text::Val(texts[2])), values.Feedrate);
            ExpectSameNumber(std::abs(text::Val(texts[3])), values.DefaultLeadin);
            ExpectSameNumber(std::abs(text::Val(texts[4])), values.NozzleSize);
        }
    }
}

}  // namespace
