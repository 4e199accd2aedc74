// Operators who do anything at all in the process windows: nothing fails, the window always shows
// the record, and what was saved reads back.
#include <optional>
#include <random>

#include "tests/process/process_windows.h"
#include "text/numbers.h"
#include "text/strings.h"

namespace process {
namespace {

// An operator who does anything at all; every box is answered and every dialog worked.
class AnyOperator : public test::ScriptedScreen {
  public:
    explicit AnyOperator(unsigned seed) : random_(seed) {}

    views::Answer Show(const views::Message& message) override {
        if (message.buttons == views::Buttons::kOk) return Answer::kOk;
        const bool yes = Pick(2) == 0;
        if (yes && message.title == "Closing Process Defaults") saved = TheProcesses();
        return yes ? Answer::kYes : Answer::kNo;
    }
    void Run(views::Form& form) override {
        auto* window = dynamic_cast<FrmProcessDefaults*>(&form);
        form.Activate();
        for (int steps = window != nullptr ? 200 : 12; steps > 0 && form.IsOpen(); --steps) {
            Step(form);
            if (window != nullptr) Check(*window);
        }
        if (form.IsOpen()) form.RequestClose();
        if (form.IsOpen()) form.Dismiss();
    }
    std::optional<ProcessTable> saved;

  private:
    int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    void Step(views::Form& form) {
        test::Keyboard keys(form);
        const auto controls = form.Controls();
        views::Control* control =
            controls[static_cast<std::size_t>(Pick(static_cast<int>(controls.size())))];
        switch (Pick(5)) {
            case 0:
                return keys.Press(views::kKeyTab, Pick(2));
            case 1: {
                const char* const texts[] = {"7", "-8", "2.5", "1e9", "x", "P", "400", "99999"};
                return keys.Type(texts[Pick(8)]);
            }
            case 2: {
                const int all[] = {views::kKeyUp, views::kKeyDown, views::kKeySpace,
                                   views::kKeyEnter, views::kKeyBackspace};
                return keys.Press(all[Pick(5)]);
            }
            case 3:
                return keys.Press('A' + Pick(26), views::kAlt);
            default:
                if (control->Name() == "cmdClose" && Pick(4) != 0) return;
                if (auto* button = dynamic_cast<views::CommandButton*>(control)) button->Press();
                if (auto* box = dynamic_cast<views::CheckBox*>(control)) box->Toggle();
                if (auto* option = dynamic_cast<views::OptionButton*>(control)) option->Pick();
                if (auto* list = dynamic_cast<views::ListBox*>(control)) list->Choose(Pick(20));
        }
    }

    // Whatever was done, the window shows the record it stands for.
    static void Check(FrmProcessDefaults& window) {
        ASSERT_FALSE(views::ApplicationEnded());
        if (!window.IsOpen()) return;
        const int count = TheProcesses().ProcessCount;
        ASSERT_TRUE(count >= 0 && count <= MaxProcesses);
        ASSERT_EQ(window.cboProcess.Count(), count);
        ASSERT_EQ(window.cboProcess.ListIndex() + 1, CurrentProcess);
        if (CurrentProcess == 0) return;
        const ProcessRecord& record = Record(CurrentProcess);
        ASSERT_TRUE(record.ThicknessCount >= 0 && record.ThicknessCount <= MaxThicknessRows);
        if (!window.txtRapid.HasFocus()) {
            ASSERT_EQ(window.txtRapid.Text(), text::NumberText(record.Rapid));
        }
        if (!window.txtLeadoutPercent.HasFocus()) {
            ASSERT_EQ(window.txtLeadoutPercent.Text(), std::to_string(record.LeadoutPercent));
        }
        ASSERT_EQ(window.optLeadIn[1].Value(), record.Leadin.View() == kLeadArc90);
        ASSERT_EQ(window.optMajorDirection[0].Value(), record.MajorDir == 1);
        ASSERT_EQ(window.chkAddKerf.Value(), record.AddKerf == 1);
    }
    static const ProcessRecord& Record(int n) { return TheProcesses().Process(n); }

    std::mt19937 random_;
};

// What reading gives back of a float that was written with its 7 digits.
float Written(float value) {
    return text::ToSingle(text::Val(text::NumberText(value)));
}

void ExpectReadsBack(ProcessRecord saved, ProcessRecord read) {
    EXPECT_EQ(views::CleanText(read.Name), views::CleanText(saved.Name));
    EXPECT_EQ(read.Rapid, Written(saved.Rapid));
    EXPECT_EQ(read.LineMarkRate, Written(saved.LineMarkRate));
    const auto lead = [](const text::FixedText<4>& code) {
        return code.View() == "Line" || code.View() == "A180" || code.View() == "Arc "
                   ? std::string(text::Trim(code.View()))
                   : std::string();
    };
    EXPECT_EQ(views::CleanText(read.Leadin), lead(saved.Leadin));
    EXPECT_EQ(views::CleanText(read.Leadout), lead(saved.Leadout));
    if (saved.Leadin.View() == "Line") {
        EXPECT_EQ(read.Angle, saved.Angle);
    }
    if (saved.Leadout.View() == "Line") {
        EXPECT_EQ(read.Leadoutangle, saved.Leadoutangle);
    }
    EXPECT_EQ(read.LeadoutPercent, saved.LeadoutPercent);
    EXPECT_EQ(read.LeadoutOverrun, saved.LeadoutOverrun);
    EXPECT_EQ(read.MajorDir, saved.MajorDir);
    EXPECT_EQ(read.MinorDir, saved.MinorDir);
    EXPECT_EQ(read.MinorOpenKerf, saved.MinorOpenKerf);
    EXPECT_EQ(read.Extension, saved.Extension);
    EXPECT_EQ(read.Leadoutextension, saved.Leadoutextension);
    EXPECT_EQ(read.AddKerf, saved.AddKerf);
    ASSERT_EQ(read.ThicknessCount, saved.ThicknessCount);
    for (int k = 1; k <= read.ThicknessCount; ++k) {
        EXPECT_EQ(read.Row(k).Thickness, Written(saved.Row(k).Thickness));
        EXPECT_EQ(read.Row(k).Feedrate, Written(saved.Row(k).Feedrate));
        EXPECT_EQ(read.Row(k).NozzleSize, Written(saved.Row(k).NozzleSize));
    }
}

TEST_F(ProcessWindows, AnySessionKeepsTheTableAndTheFileInOrder) {
    int saves = 0;
    for (unsigned seed = 1; seed <= 100 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        drives.Write(kFile, kBefore);
        AnyOperator anyone(seed);
        {
            FrmProcessDefaults window;
            views::Guard([&] { views::ShowModal(window); });
        }
        EXPECT_FALSE(views::ApplicationEnded());
        if (!anyone.saved) {
            EXPECT_EQ(drives.Read(kFile), kBefore);
            continue;
        }
        ++saves;
        ASSERT_TRUE(ReadProcessFile());
        ASSERT_EQ(TheProcesses().ProcessCount, anyone.saved->ProcessCount);
        for (int n = 1; n <= anyone.saved->ProcessCount; ++n) {
            ExpectReadsBack(anyone.saved->Process(n), Record(n));
        }
    }
    EXPECT_GT(saves, 20);
}

}  // namespace
}  // namespace process
