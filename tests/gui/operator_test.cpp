// An operator without a plan in the real windows: presses any key of the keyboard, clicks, double
// clicks anywhere, and goes wherever that leads. After every step each real control shows
// what its plain one says, and at the end everything that was saved is shown again without a
// complaint.
//
// SYSMAN_STEPS sets the number of steps, SYSMAN_SEED where the dice begin.
#include <gtest/gtest.h>
#include <wx/defs.h>
#include <wx/window.h>

#include <cstdio>
#include <cstdlib>
#include <random>

#include "tests/gui/real_player.h"
#include "tests/support/workshop.h"

namespace {

int Setting(const char* name, int usual) {
    const char* value = std::getenv(name);
    return value == nullptr ? usual : std::atoi(value);
}

// All of them, one after the other until all steps are done.
class Operator : public test::RealPlayer {
  public:
    static inline int left = Setting("SYSMAN_STEPS", 500);

  private:
    void WorkIn(views::Form& form) override {
        for (; left > 0 && form.IsOpen() && !::testing::Test::HasFailure(); --left) {
            done_ += form.Name() + " ";
            Step(form);
            EXPECT_EQ(form.IsOpen() ? Differences(form) : "", "") << "after\n" << done_;
        }
        // The first key may only close a list that hangs open.
        for (int tries = 0; form.IsOpen() && tries < 5; ++tries) test::Key(WXK_ESCAPE);
        EXPECT_FALSE(form.IsOpen()) << form.Name() << " does not close after\n" << done_;
        form.Dismiss();
    }
    views::Answer Decide(const views::Message& message) override {
        using views::Answer, views::Buttons;
        EXPECT_NE(message.icon, views::Icon::kCritical) << message.text << " after\n" << done_;
        const bool yes = Dice(2) == 0;
        if (message.buttons == Buttons::kYesNo) return yes ? Answer::kYes : Answer::kNo;
        return yes || message.buttons == Buttons::kOk ? Answer::kOk : Answer::kCancel;
    }

    static int Dice(auto sides) {
        static std::mt19937 dice(static_cast<unsigned>(Setting("SYSMAN_SEED", 1)));
        return static_cast<int>(dice() % static_cast<unsigned>(sides));
    }
    static auto OneOf(const auto& of) { return *std::next(std::begin(of), Dice(std::size(of))); }

    void Step(views::Form& form) {
        const int deed = Dice(100);
        if (deed < 35) {
            const char32_t character = OneOf(test::LayoutCharacters());
            const int held =
                OneOf(std::vector{0, 0, 0, 0, test::kShiftKey, test::kCtrlKey, test::kAltGrKey});
            done_ += "U+" + std::to_string(character) + " with " + std::to_string(held) + "\n";
            test::TypeCharacter(character, held);
            return test::Settle();
        }
        if (deed < 60) {
            const int key = OneOf(std::vector{WXK_TAB, WXK_RETURN, WXK_LEFT, WXK_UP, WXK_RIGHT,
                                              WXK_DOWN, WXK_HOME, WXK_END, WXK_PAGEUP, WXK_PAGEDOWN,
                                              WXK_BACK, WXK_DELETE, WXK_F6, WXK_SPACE});
            const int held = Dice(8) > 1 ? 0 : Dice(2) > 0 ? wxMOD_SHIFT : wxMOD_CONTROL;
            done_ += "key " + std::to_string(key) + " with " + std::to_string(held) + "\n";
            return test::Key(key, held);
        }
        // In a control without its scroll bars: on Windows nothing else goes on while one is held.
        auto controls = form.Controls();
        std::erase_if(controls, [](auto* each) { return !each->CanTakeFocus(); });
        const views::Control& plain = *OneOf(controls);
        const wxSize size = test::RealOf(plain)->GetClientSize();
        const wxPoint at = test::RealOf(plain)->ClientToScreen(wxPoint(Dice(size.x), Dice(size.y)));
        done_ += plain.Name() + (deed % 4 == 0 ? " clicked twice\n" : " clicked\n");
        test::ClickAt([at] { return at; }, deed % 4 == 0);
    }

    std::string done_;
};

TEST(WithoutAPlan, InAllWindows) {
    const test::Workshop workshop;
    while (Operator::left > 0 && !HasFailure()) Operator().Play(workshop, "-> ...");
    test::RealPlayer().Play(workshop, R"(
        click cmdSysMaterial, close, click cmdSysProcess, close ->
        click cmdSysDefaults, close ->
    )");
}

}  // namespace
