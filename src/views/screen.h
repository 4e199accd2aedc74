// Where the windows meet the outside: message boxes, the beep, the pointer, the screen itself.
//
// The program gives the real screen of the toolkit, the tests one that answers from a script.
#pragma once

#include <string>
#include <string_view>

namespace views {

class Form;

enum class Buttons { kOk, kOkCancel, kYesNo };
enum class Icon { kNone, kExclamation, kQuestion, kInformation, kCritical };
enum class Answer { kOk, kCancel, kYes, kNo };

// What a message box shows. Lines are separated by CR or LF, whichever the text has.
struct Message {
    std::string text;
    std::string title;
    Buttons buttons = Buttons::kOk;
    Icon icon = Icon::kNone;
};

class Screen {
  public:
    virtual ~Screen() = default;

    // In the screen's own units, those of Form::width and Form::height.
    virtual int Width() const = 0;
    virtual int Height() const = 0;

    // Shows a box and waits. A box dismissed in another way than by its buttons is answered with
    // the button that changes nothing: No, Cancel, or OK where there is no other.
    virtual Answer Show(const Message& message) = 0;
    virtual void Beep() = 0;
    virtual void SetBusy(bool busy) = 0;

    // Prepares a loaded window and gives it its width and height.
    virtual void Realise(Form& form) = 0;
    // Shows a prepared window, modal to the one below, until it is closed.
    virtual void Run(Form& form) = 0;
};

// The one screen of the run. InstallScreen gives back the one before.
Screen& TheScreen();
Screen* InstallScreen(Screen* screen);

// The usual boxes.
void ShowWarning(std::string_view text, std::string_view title);  // OK, exclamation
bool AskYesNo(std::string_view text, std::string_view title, Icon icon = Icon::kNone);

// Shows the busy pointer as long as it lives.
class BusyPointer {
  public:
    BusyPointer() { TheScreen().SetBusy(true); }
    ~BusyPointer() { TheScreen().SetBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace views
