// Plays scripts in real windows, by a real keyboard and mouse. Entries of lists are chosen and the
// focus set as a script reader would, without either; "click" on a list takes the mouse, though.
#pragma once

#include <deque>

#include "tests/support/script.h"
#include "views/wx/wx_screen.h"

namespace test {

// Lets everything that has been set off come to rest.
void Settle();
// Lets the events at hand be handled until the condition holds; false when it does not in a time
// that no machine needs.
bool Until(const std::function<bool()>& condition, long milliseconds = 20000);

// The real window of a control of the form on top.
wxWindow* RealOf(const views::Control& control);
// Where it is clicked: in a list on its first entry, otherwise on its arrow where it has one.
wxPoint PlaceOf(const views::Control& plain);
// The place is asked for again until it stays: windows still move a little when they have just
// appeared. Meanwhile the button is down, for a tenth of a second as a hand holds it.
void ClickAt(
    const std::function<wxPoint()>& where, bool twice = false,
    const std::function<void()>& meanwhile = [] { Until([] { return false; }, 100); });
// A key of the toolkit (WXK_TAB, 'A'), with wxMOD_SHIFT and so on.
// Waits until the window on top has the keyboard, which it gets back when it likes after a box.
void AwaitKeyboard();

void Key(int key, int modifiers = 0);

// Keys by the platform's own names for them. What they type is the keyboard layout's business.
inline constexpr int kShiftKey = 1, kCtrlKey = 2, kAltKey = 4, kWindowsKey = 8, kAltGrKey = 16;
void Press(unsigned key, int held = 0);
// Types a character; while other keys are held than the layout wants, presses its key alone.
void TypeCharacter(char32_t character, int held = 0);
// Every character that some key of the layout types, alone or with Shift, AltGr or both. On Windows
// also those of the system's set that no key stands for, and one that the set does not have; these
// come as an input method sends them.
std::u32string LayoutCharacters();
// Makes a layout of the virtual display the current one ("de"). Windows has "us" only.
bool UseLayout(const std::string& layout);

class RealPlayer : public Player, private views::wx::WxScreen {
  public:
    // What a test does itself, one after the other as the deed '*'.
    std::deque<std::function<void(views::Form&)>> own;
    std::string Differences(const views::Form& form) override;

  protected:
    // What is done in each window, and said to each message box.
    virtual void WorkIn(views::Form& form) { Work(form); }
    virtual views::Answer Decide(const views::Message& message) { return Answer(message); }

    void Start(views::Form& form) override;
    void Press(views::Form& form, int key, int shift) override;
    void Type(views::Form& form, char character) override;
    void Click(views::Control& control) override {
        ClickAt([&] { return PlaceOf(control); });
    }
    void Paste(views::Control& control, const std::string& text) override;
    void ClickCell(views::Grid& grid, int row, int column, bool twice) override;

  private:
    views::Answer Show(const views::Message& message) override;
    void Beep() override { Player::Beep(); }
    void Run(views::Form& form) override;
};

}  // namespace test
