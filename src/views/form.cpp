#include "views/form.h"

#include <algorithm>

#include "text/strings.h"
#include "views/basic_controls.h"
#include "views/view_procedures.h"

namespace views {
namespace {

void Collect(const Layout& layout, std::vector<Control*>& controls) {
    if (layout.control != nullptr) controls.push_back(layout.control);
    for (const Layout& part : layout.parts) Collect(part, controls);
}

}  // namespace

Layout Framed(Frame& frame, Layout part) {
    Layout layout(Layout::Kind::kFrame, {});
    layout.grows = part.grows;
    layout.control = &frame;
    layout.parts.push_back(std::move(part));
    return layout;
}

Form::Form(std::string_view name, std::string_view caption) : name_(name), caption_(caption) {}

void Form::SetCaption(std::string_view caption) {
    caption_ = text::UntilNul(caption);
    if (peer_ != nullptr) peer_->ShowCaption();
}

void Form::Open() {
    open_ = true;
    Load();
}

void Form::Close() {
    if (!open_) return;
    open_ = false;
    Unload();
    if (peer_ != nullptr) peer_->Close();
}

void Form::Dismiss() {
    open_ = false;
    if (peer_ != nullptr) peer_->Close();
}

void Form::RequestClose() {
    if (closeButton != nullptr) {
        closeButton->Press();
    } else {
        Close();
    }
}

void Form::Activate() {
    if (focus_ != nullptr) {
        focus_->Changed(Aspect::kFocus);
    } else if (firstFocus != nullptr && firstFocus->CanTakeFocus()) {
        MoveFocus(firstFocus);
    } else {
        MoveFocusBy(1);
    }
}

void Form::MoveFocus(Control* control) {
    if (control == focus_) return;
    Control* const old = std::exchange(focus_, control);
    if (old != nullptr && old->onLostFocus) old->onLostFocus();
    // The handler may have sent the focus elsewhere.
    if (focus_ != control || control == nullptr) return;
    control->Changed(Aspect::kFocus);
    if (control->onGotFocus) control->onGotFocus();
}

void Form::MoveFocusOn() {
    Control* const old = focus_;
    MoveFocusBy(1);
    if (focus_ == old) MoveFocus(nullptr);
}

void Form::MoveFocusBy(int step) {
    const auto controls = Controls();
    const auto count = static_cast<std::ptrdiff_t>(controls.size());
    const auto found = std::find(controls.begin(), controls.end(), focus_);
    std::ptrdiff_t at = found != controls.end() ? found - controls.begin() : step > 0 ? -1 : count;
    for (std::ptrdiff_t tries = 0; tries < count; ++tries) {
        at = (at + step + count) % count;
        if (controls[at]->IsTabStop()) {
            MoveFocus(controls[at]);
            return;
        }
    }
}

bool Form::KeyDown(int key, int shift) {
    Control* const control = focus_;
    if (control != nullptr) {
        KeyEvent event{key, shift};
        if (control->onKeyDown) control->onKeyDown(event);
        if (event.handled || !open_) return true;
        if (control->HandleKey(key, shift)) return true;
    }
    if (key == kKeyTab && (shift & ~kShift) == 0) {
        MoveFocusBy(shift == kShift ? -1 : 1);
        return true;
    }
    if (key == kKeyEscape) {
        RequestClose();
        return true;
    }
    if (key == kKeyEnter) {
        if (defaultButton != nullptr && defaultButton->CanTakeFocus()) {
            defaultButton->Press();
        } else {
            // Nothing but a handler makes something of Enter, a text box has no second line.
            KeyPress(static_cast<char>(kKeyEnter));
        }
        return true;
    }
    return shift == kAlt && key > kKeySpace && key < 256 && Mnemonic(static_cast<char>(key));
}

bool Form::KeyPress(char character) {
    if (focus_ == nullptr) return true;
    CharEvent event{character};
    if (focus_->onKeyPress) focus_->onKeyPress(event);
    return event.handled;
}

bool Form::Mnemonic(char letter) {
    auto controls = Controls();
    // Beginning behind the focus, so that a letter used twice goes round.
    const auto found = std::find(controls.begin(), controls.end(), focus_);
    if (found != controls.end()) std::rotate(controls.begin(), found + 1, controls.end());
    return std::any_of(controls.begin(), controls.end(),
                       [letter](Control* control) { return control->HandleMnemonic(letter); });
}

std::vector<Control*> Form::Controls() const {
    std::vector<Control*> controls;
    Collect(layout_, controls);
    for (Control* control : registered_) {
        if (std::find(controls.begin(), controls.end(), control) == controls.end()) {
            controls.push_back(control);
        }
    }
    return controls;
}

}  // namespace views
