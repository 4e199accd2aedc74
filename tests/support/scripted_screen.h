// A screen that answers message boxes from a script and works the windows that are shown, in place
// of a person.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "views/form.h"
#include "views/screen.h"

namespace test {

class ScriptedScreen : public views::Screen {
  public:
    ScriptedScreen();
    ~ScriptedScreen() override;

    // The answers of the boxes to come, in order; a box without one fails the test.
    std::deque<views::Answer> answers;
    // What is done in the windows to come, in order; one left open afterwards is closed by its
    // frame. A window without an entry is just closed.
    std::deque<std::function<void(views::Form&)>> windows;

    // What was shown, beeps included, in order: "beep", or "title|text|buttons|icon".
    std::vector<std::string> log;
    int busy = 0;  // depth of the busy pointer

    // The log since the last call.
    std::vector<std::string> TakeLog();

    int Width() const override { return 1000; }
    int Height() const override { return 800; }
    views::Answer Show(const views::Message& message) override;
    void Beep() override { log.push_back("beep"); }
    void SetBusy(bool on) override { busy += on ? 1 : -1; }
    void Realise(views::Form& form) override;
    void Run(views::Form& form) override;

  private:
    views::Screen* before_;
};

// The line of the log for a message box.
std::string Box(const std::string& title, const std::string& text, const std::string& buttons,
                const std::string& icon);

// What a person at the keyboard does: keys reach the window with the focus as real ones do.
class Keyboard {
  public:
    explicit Keyboard(views::Form& form) : form_(form) {}

    // Presses a key (see keys.h), with what follows from it.
    void Press(int key, int shift = 0);
    // Types characters: each is a key, which has a meaning or not, and then a character.
    void Type(std::string_view text);

  private:
    views::Form& form_;
};

}  // namespace test
