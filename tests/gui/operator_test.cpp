// An operator without a plan in the real windows: presses any key of the keyboard, clicks, double
// clicks, drags and turns the wheel anywhere. After every step each real control shows what its
// plain one says, and at the end the file holds what the window showed.
//
// SYSMAN_STEPS sets the number of steps in each window, SYSMAN_SEED where the dice begin.
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/timer.h>
#include <wx/uiaction.h>
#include <wx/window.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "app/sys_man.h"
#include "materiallist/edit_material_list.h"
#include "materialtypes/edit_material_types.h"
#include "process/process_defaults.h"
#include "process/process_file.h"
#include "process/thickness_data.h"
#include "tests/gui/keyboard.h"
#include "tests/gui/person.h"
#include "tests/materiallist/material_list_fixture.h"
#include "text/clean_text.h"
#include "views/application.h"

namespace {

using Rows = std::vector<std::vector<std::string>>;

unsigned Setting(const char* name, unsigned usual) {
    const char* value = std::getenv(name);
    return value == nullptr ? usual : static_cast<unsigned>(std::atoi(value));
}

class Operator : public wxModalDialogHook, public wxTimer {
  public:
    Operator(views::Form& form, const views::Control& close, unsigned seed)
        : form_(form), close_(close), dice_(seed) {
        Register();
        Start(200);
    }
    ~Operator() override { Unregister(); }

    // Works in the window and closes it in the end, saving.
    void Work(unsigned steps) {
        for (unsigned step = 0; step < steps && form_.IsOpen(); ++step) {
            done_ += Step() + "\n";
            test::Until([this] { return !form_.IsOpen() || test::Differences(form_).empty(); });
            if (!form_.IsOpen()) break;
            ASSERT_EQ(test::Differences(form_), "") << "after step " << step << " of\n" << done_;
            ASSERT_NE(form_.Focus(), nullptr) << "after step " << step << " of\n" << done_;
        }
        // The first click may only close a list that hangs open.
        for (int tries = 0; form_.IsOpen() && tries < 5; ++tries) {
            test::Click(close_);
            test::Until([this] { return !form_.IsOpen(); }, 2000);
        }
        EXPECT_FALSE(form_.IsOpen());
    }

  protected:
    // Dialogs on top are given a word or two and left; a question is answered by either button.
    int Enter(wxDialog* dialog) override {
        if (std::exchange(inDialog_, dialog) == dialog) return wxID_NONE;
        const wxString title = dialog->GetTitle();
        const bool save = title.Contains("Sav") || title.Contains("Clos");
        wxTheApp->CallAfter([this, dialog, save] {
            test::Until([dialog] {
                const wxWindow* focus = wxWindow::FindFocus();
                return focus != nullptr &&
                       wxGetTopLevelParent(const_cast<wxWindow*>(focus)) == dialog;
            });
            for (int tries = 0; dialog->IsModal() && tries < 100; ++tries) {
                // Return closes it too, and the next key must not go to the window below.
                if (Dice(2) == 0) test::Key("5a.Z"[Dice(4)]);
                test::Key(save || Dice(3) == 0 ? WXK_RETURN : WXK_ESCAPE);
            }
        });
        return wxID_NONE;
    }
    void Exit(wxDialog*) override { inDialog_ = nullptr; }
    void Notify() override {
        const std::string title = test::TitleOfBox();
        if (title.empty()) return;
        const bool save = title.find("Sav") != title.npos || title.find("Clos") != title.npos;
        // A question for a disk is asked until it is cancelled.
        const int keys[] = {WXK_RETURN, 'N', WXK_ESCAPE};
        wxUIActionSimulator().Char(keys[save ? 0 : Dice(3)]);
    }

  private:
    unsigned Dice(unsigned sides) { return static_cast<unsigned>(dice_() % sides); }

    // A point in a control that can be clicked, but not in the one that closes the window.
    wxPoint Anywhere(std::string& name) {
        for (;;) {
            const auto controls = form_.Controls();
            const views::Control* plain = controls[Dice(static_cast<unsigned>(controls.size()))];
            const wxWindow* real = test::RealOf(*plain);
            if (plain == &close_ || !plain->CanTakeFocus() || real == nullptr) continue;
            // Without its scroll bars: on Windows nothing else goes on while one is held.
            const wxRect area(real->ClientToScreen(wxPoint(0, 0)), real->GetClientSize());
            name += " " + plain->Name();
            return area.GetTopLeft() +
                   wxPoint(static_cast<int>(Dice(static_cast<unsigned>(area.width))),
                           static_cast<int>(Dice(static_cast<unsigned>(area.height))));
        }
    }

    std::string Step() {
        const unsigned deed = Dice(100);
        if (deed < 45) {
            static constexpr int kHeld[] = {
                0, 0, 0, 0, 0, test::kShiftKey, test::kCtrlKey, test::kAltGrKey};
            const unsigned key = Dice(60);
            const int held = kHeld[Dice(std::size(kHeld))];
            if (close_.HasFocus()) return "nothing";
            test::PressAny(key, held);
            return "key " + std::to_string(key) + " with " + std::to_string(held);
        }
        if (deed < 70) {
            static constexpr int kKeys[] = {
                WXK_TAB, WXK_RETURN, WXK_LEFT,     WXK_UP,   WXK_RIGHT,  WXK_DOWN, WXK_HOME,
                WXK_END, WXK_PAGEUP, WXK_PAGEDOWN, WXK_BACK, WXK_DELETE, WXK_F6,   WXK_SPACE};
            static constexpr int kHeld[] = {0, 0, 0, wxMOD_SHIFT, wxMOD_CONTROL};
            const int key = kKeys[Dice(std::size(kKeys))];
            const int held = kHeld[Dice(std::size(kHeld))];
            if (close_.HasFocus() && (key == WXK_RETURN || key == WXK_SPACE)) return "nothing";
            test::Key(key, held);
            return "named key " + std::to_string(key) + " with " + std::to_string(held);
        }
        std::string where;
        const wxPoint at = Anywhere(where);
        if (deed < 88) {
            test::ClickAt([at] { return at; }, deed % 4 == 0);
            return (deed % 4 == 0 ? "double click" : "click") + where;
        }
        if (deed < 95) {
            test::Drag(at, Anywhere(where));
            return "drag" + where;
        }
        test::TurnWheel(deed % 2 == 0);
        return "wheel";
    }

    views::Form& form_;
    const views::Control& close_;
    std::mt19937 dice_;
    wxDialog* inDialog_ = nullptr;
    std::string done_;
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

class WithoutAPlan : public ::testing::Test {
  protected:
    WithoutAPlan() {
        files.Load(materiallist::kExistingDirectory,
                   test::ListFile({{"MS", "PLASMA", "10"}, {"SS", "Oxy Fuel", "12.5"}}));
    }
    void Work(views::Form& form, const views::Control& close) {
        const unsigned seed = Setting("SYSMAN_SEED", 1), steps = Setting("SYSMAN_STEPS", 120);
        SCOPED_TRACE("seed " + std::to_string(seed));
        test::WorkIn(form, [&] { Operator(form, close, seed).Work(steps); });
        std::printf("%s: %u steps from seed %u\n", form.Name().c_str(), steps, seed);
    }
    test::MaterialListFiles files;
};

TEST_F(WithoutAPlan, InTheMaterialTypes) {
    materialtypes::FrmEditMaterialTypes form, again;
    Work(form, form.cmdClose);
    const Rows before = Shown(form.grdMaterialTypes, materialtypes::TheMaterialTypes().Count);
    test::WorkIn(again, [] {});
    const Rows after = Shown(again.grdMaterialTypes, materialtypes::TheMaterialTypes().Count);
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t row = 0; row < before.size(); ++row) {
        std::string description = before[row][1].substr(0, 50);
        EXPECT_EQ(before[row][0], after[row][0]);
        EXPECT_EQ(text::CleanText(description), after[row][1]);
        ExpectSameNumber(text::Val(before[row][2]), text::Val(after[row][2]));
    }
}

TEST_F(WithoutAPlan, InTheThicknesses) {
    auto& table = process::TheProcesses();
    table.ProcessCount = process::Shared().CurrentProcess = 1;
    table.Process(1).Name = "Plasma";
    process::InitProcessRecord(1, 0);
    process::FrmThicknessData form;
    Work(form, form.cmdThkClose);
    const Rows shown = Shown(form.grdThicknessData, table.Process(1).ThicknessCount);
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

TEST_F(WithoutAPlan, InTheMaterialList) {
    materiallist::FrmEditMaterialList form;
    Work(form, form.cmdClose);
    const int count = materiallist::TheMaterialList().EntryCount;
    std::vector<std::string> before, after;
    for (int i = 1; i <= count; ++i) {
        before.push_back(test::EntryText(i));
        EXPECT_TRUE(form.grdMaterialList.Text(i, 1).starts_with(
            before.back().substr(0, before.back().find('|'))));
    }
    ASSERT_TRUE(app::LoadForMaterialList());
    ASSERT_EQ(materiallist::TheMaterialList().EntryCount, count);
    for (int i = 1; i <= count; ++i) after.push_back(test::EntryText(i));
    EXPECT_EQ(before, after);
}

TEST_F(WithoutAPlan, InTheProcesses) {
    process::FrmProcessDefaults form;
    Work(form, form.cmdClose);
    EXPECT_TRUE(process::ReadProcessFile());
}

TEST_F(WithoutAPlan, InTheMainWindow) {
    for (const char* name : {"job1", "job2", "a job with a name that is longer than the list"}) {
        files.drives.MakeDir(std::string("c:\\tolvarin\\USER\\PROD\\") + name + "\\COMP");
        files.drives.MakeDir(std::string("c:\\tolvarin\\USER\\DESIGN\\") + name + "\\GEOMETRY");
    }
    app::SysMan form;
    views::Guard([&] { Work(form, form.cmdClose); });
    views::ResetApplication();  // a print without a printer may have ended the run
}

}  // namespace
