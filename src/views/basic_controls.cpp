#include "views/basic_controls.h"

#include <algorithm>

#include "views/form.h"
#include "views/keys.h"

namespace views {
namespace {

// -1 or 1 for an arrow key that leads back or on, 0 for any other. Shift and Ctrl make no
// difference, or the toolkit would make one of its own.
int StepOf(int key, int shift) {
    if ((shift & kAlt) != 0) return 0;
    return key == kKeyLeft || key == kKeyUp ? -1 : key == kKeyRight || key == kKeyDown ? 1 : 0;
}

// Where a control makes nothing else of the arrow keys they move the focus.
bool MoveByArrow(Form& form, int key, int shift) {
    const int step = StepOf(key, shift);
    if (step != 0) form.MoveFocusBy(step);
    return step != 0;
}

}  // namespace

void Label::OnMnemonic() {
    const auto controls = Owner().Controls();
    auto at = std::find(controls.begin(), controls.end(), this);
    at = std::find_if(at, controls.end(), [](Control* control) { return control->CanTakeFocus(); });
    if (at != controls.end()) Owner().MoveFocus(*at);
}

void CommandButton::Press() {
    if (!CanTakeFocus()) return;
    Owner().MoveFocus(this);
    // A handler of the focus may have disabled it or closed the window.
    if (CanTakeFocus() && Owner().IsOpen()) Click();
}

bool CommandButton::HandleKey(int key, int shift) {
    if (key != kKeyEnter || shift != 0) return MoveByArrow(Owner(), key, shift);
    Press();
    return true;
}

void CheckBox::SetValue(bool value) {
    if (value == value_) return;
    value_ = value;
    Changed(Aspect::kValue);
}

void CheckBox::Toggle() {
    if (!CanTakeFocus()) return;
    Owner().MoveFocus(this);
    value_ = !value_;
    Changed(Aspect::kValue);
    if (onClick) onClick();
}

bool CheckBox::HandleKey(int key, int shift) {
    return MoveByArrow(Owner(), key, shift);
}

OptionButton::OptionButton(Form& owner, std::string_view name, std::string_view caption,
                           OptionGroup& group)
    : CaptionedControl(owner, name, Kind::kOption, caption), group_(group) {
    group.buttons.push_back(this);
}

void OptionButton::SetValue(bool value) {
    if (value) {
        for (OptionButton* other : group_.buttons) {
            if (other != this) other->SetValue(false);
        }
    }
    if (value != value_) {
        value_ = value;
        Changed(Aspect::kValue);
    }
    if (value && onClick) onClick();
}

void OptionButton::Pick() {
    if (!CanTakeFocus()) return;
    Owner().MoveFocus(this);
    if (!value_) SetValue(true);
}

bool OptionButton::HandleKey(int key, int shift) {
    const int step = StepOf(key, shift);
    if (step == 0) return false;
    const auto& buttons = group_.buttons;
    const auto count = static_cast<std::ptrdiff_t>(buttons.size());
    std::ptrdiff_t at = std::find(buttons.begin(), buttons.end(), this) - buttons.begin();
    for (std::ptrdiff_t tries = 1; tries < count; ++tries) {
        at = (at + step + count) % count;
        if (buttons[at]->CanTakeFocus()) {
            buttons[at]->Pick();
            break;
        }
    }
    return true;
}

bool OptionButton::IsTabStop() const {
    if (!CanTakeFocus() || value_) return CanTakeFocus();
    // A step of Tab leaves the group that has the focus.
    const auto& all = group_.buttons;
    const bool taken = std::any_of(all.begin(), all.end(), [](OptionButton* other) {
        return (other->value_ && other->CanTakeFocus()) || other->HasFocus();
    });
    const auto first =
        std::find_if(all.begin(), all.end(), [](OptionButton* b) { return b->CanTakeFocus(); });
    return !taken && *first == this;
}

void SpinButton::Step(const std::function<void()>& handler) {
    if (!CanTakeFocus()) return;
    Owner().MoveFocus(this);
    if (handler) handler();
}

void SpinButton::Up() {
    Step(onSpinUp);
}

void SpinButton::Down() {
    Step(onSpinDown);
}

bool SpinButton::HandleKey(int key, int shift) {
    const int step = StepOf(key, shift);
    if (step == 0) return false;
    key == kKeyUp || key == kKeyRight ? Up() : Down();
    return true;
}

}  // namespace views
