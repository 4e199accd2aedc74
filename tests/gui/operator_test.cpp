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

#include "tests/gui/keyboard.h"
#include "tests/gui/person.h"
#include "tests/gui/real_player.h"
#include "tests/support/workshop.h"
#include "views/printer.h"
#include "views/screen.h"

namespace {

unsigned Setting(const char* name, int usual) {
    const char* value = std::getenv(name);
    return static_cast<unsigned>(value == nullptr ? usual : std::atoi(value));
}

struct NoPrinter : views::Printer {
    void ShowSetup() override {}
    void Send(const std::vector<Page>&) override {}
};

class Operator : public test::RealPlayer {
  public:
    Operator(unsigned seed, unsigned steps) : dice_(seed), left_(steps) {}

  protected:
    void WorkIn(views::Form& form) override {
        done_ += "in " + form.Name() + "\n";
        while (left_ > 0 && form.IsOpen() && !::testing::Test::HasFailure()) {
            --left_;
            done_ += Step(form) + "\n";
            EXPECT_TRUE(!form.IsOpen() || Differences(form).empty())
                << Differences(form) << "after\n"
                << done_;
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

  private:
    unsigned Dice(std::size_t sides) { return static_cast<unsigned>(dice_() % sides); }

    // A point in a control that can be clicked, without its scroll bars: on Windows nothing else
    // goes on while one is held.
    wxPoint Anywhere(views::Form& form) {
        std::vector<const views::Control*> controls;
        for (const views::Control* each : form.Controls()) {
            if (each->CanTakeFocus() && !Ends(*each)) controls.push_back(each);
        }
        const views::Control& plain = *controls[Dice(controls.size())];
        const wxWindow* real = test::RealOf(plain);
        const wxSize size = real->GetClientSize();
        done_ += plain.Name() + " ";
        const unsigned x = Dice(static_cast<unsigned>(size.x));
        return real->ClientToScreen(
            wxPoint(static_cast<int>(x), static_cast<int>(Dice(static_cast<unsigned>(size.y)))));
    }
    static bool Ends(const views::Control& control) {
        return control.Name() == "cmdClose" && control.Owner().Name() == "SysMan";
    }

    std::string Step(views::Form& form) {
        static constexpr int kHeld[] = {
            0, 0, 0, 0, test::kShiftKey, test::kCtrlKey, test::kAltGrKey};
        static constexpr int kKeys[] = {WXK_TAB,  WXK_RETURN, WXK_LEFT, WXK_UP,     WXK_RIGHT,
                                        WXK_DOWN, WXK_HOME,   WXK_END,  WXK_PAGEUP, WXK_PAGEDOWN,
                                        WXK_BACK, WXK_DELETE, WXK_F6,   WXK_SPACE};
        const unsigned deed = Dice(100);
        if (deed < 60 && form.Focus() != nullptr && Ends(*form.Focus())) test::Key(WXK_TAB);
        if (deed < 35) {
            const auto characters = test::LayoutCharacters();
            const char32_t character = characters[Dice(characters.size())];
            const int held = kHeld[Dice(std::size(kHeld))];
            held == 0 ? test::TypeCharacter(character) : test::PressWith(held, character);
            test::Settle();
            return "U+" + std::to_string(character) + " with " + std::to_string(held);
        }
        if (deed < 60) {
            const int key = kKeys[Dice(std::size(kKeys))];
            const int held = Dice(4) > 0 ? 0 : Dice(2) > 0 ? wxMOD_SHIFT : wxMOD_CONTROL;
            test::Key(key, held);
            return "key " + std::to_string(key) + " with " + std::to_string(held);
        }
        const wxPoint at = Anywhere(form);
        test::ClickAt([at] { return at; }, deed % 4 == 0);
        return deed % 4 == 0 ? "clicked twice" : "clicked";
    }

    std::mt19937 dice_;
    unsigned left_;
    std::string done_;
};

TEST(WithoutAPlan, InAllWindows) {
    const unsigned seed = Setting("SYSMAN_SEED", 1), steps = Setting("SYSMAN_STEPS", 500);
    const test::Workshop workshop;
    NoPrinter none;
    views::Printer* const before = views::InstallPrinter(&none);
    std::printf("%u steps from seed %u\n", steps, seed);
    Operator(seed, steps).Play(workshop, "-> ...");
    views::InstallPrinter(before);
    test::RealPlayer().Play(workshop, R"(
        click cmdSysMaterial, close, click cmdSysProcess, close -> focus cmdSysProcess
        click cmdSysDefaults, close -> focus cmdSysDefaults
    )");
}

}  // namespace
