// Labels, frames, buttons, check boxes, option buttons, spin buttons and timers.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "views/control.h"

namespace views {

// A text. Its mnemonic goes to the next control.
class Label : public CaptionedControl {
  public:
    Label(Form& owner, std::string_view name, std::string_view caption)
        : Label(owner, name, Kind::kLabel, caption) {}
    bool TakesFocus() const override { return false; }

  protected:
    Label(Form& owner, std::string_view name, Kind kind, std::string_view caption)
        : CaptionedControl(owner, name, kind, caption) {}
    void OnMnemonic() override;
};

// A titled box around other controls. Its mnemonic goes to the first of them.
class Frame : public Label {
  public:
    Frame(Form& owner, std::string_view name, std::string_view caption)
        : Label(owner, name, Kind::kFrame, caption) {}
};

class CommandButton : public CaptionedControl {
  public:
    CommandButton(Form& owner, std::string_view name, std::string_view caption)
        : CaptionedControl(owner, name, Kind::kButton, caption) {}

    // The operator presses it, by mouse, Space, Enter or mnemonic: the focus moves here first.
    // Nothing happens while it is disabled or hidden.
    void Press();
    // The Click handler alone, as another command runs it.
    void Click() {
        if (onClick) onClick();
    }
    bool HandleKey(int key, int shift) override;

    std::function<void()> onClick;

  protected:
    void OnMnemonic() override { Press(); }
};

class CheckBox : public CaptionedControl {
  public:
    CheckBox(Form& owner, std::string_view name, std::string_view caption)
        : CaptionedControl(owner, name, Kind::kCheckBox, caption) {}

    bool Value() const { return value_; }
    // From code: runs no handler.
    void SetValue(bool value);
    // The operator ticks or clears it.
    void Toggle();
    bool HandleKey(int key, int shift) override;

    std::function<void()> onClick;

  protected:
    void OnMnemonic() override { Toggle(); }

  private:
    bool value_ = false;
};

class OptionButton;

// The option buttons that release each other.
struct OptionGroup {
    std::vector<OptionButton*> buttons;
};

class OptionButton : public CaptionedControl {
  public:
    OptionButton(Form& owner, std::string_view name, std::string_view caption, OptionGroup& group);

    bool Value() const { return value_; }
    // From code: setting it runs the click handler even if it was set already and releases the
    // others of its group without running theirs; clearing it runs nothing.
    void SetValue(bool value);
    // The operator picks it; picking the one that is set changes nothing.
    void Pick();

    // The arrow keys pick the next one of the group.
    bool HandleKey(int key, int shift) override;
    // Tab stops at the set one of a group, or at the first where none is.
    bool IsTabStop() const override;

    const OptionGroup& Group() const { return group_; }

    std::function<void()> onClick;

  protected:
    void OnMnemonic() override { Pick(); }

  private:
    OptionGroup& group_;
    bool value_ = false;
};

// A pair of arrow buttons.
class SpinButton : public Control {
  public:
    SpinButton(Form& owner, std::string_view name) : Control(owner, name, Kind::kSpinButton) {}

    // The operator presses one of its arrows, or the arrow key while it has the focus.
    void Up();
    void Down();
    bool HandleKey(int key, int shift) override;

    std::function<void()> onSpinUp;
    std::function<void()> onSpinDown;

  private:
    void Step(const std::function<void()>& handler);
};

// A timer among the controls of a window. The only one of the system does nothing when it ticks, so
// nothing makes it tick.
struct Timer {
    int interval;  // milliseconds
};

}  // namespace views
