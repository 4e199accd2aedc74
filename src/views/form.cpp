#include "views/form.h"

#include <algorithm>
#include <stdexcept>

#include "text/strings.h"
#include "views/basic_controls.h"
#include "views/keys.h"

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
    const auto placed = Controls();
    for (const Control* control : registered_) {
        if (control->neverShown) continue;
        if (std::find(placed.begin(), placed.end(), control) == placed.end()) {
            throw std::logic_error(name_ + ": no layout places " + control->Name());
        }
    }
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
    // Shown first: where the handler disables the old one, Windows would send the focus on to the
    // next, and that is often the button that closes the window.
    if (control != nullptr) control->Changed(Aspect::kFocus);
    if (old != nullptr && old->onLostFocus) old->onLostFocus();
    // The handler may have sent the focus elsewhere.
    if (focus_ != control || control == nullptr) return;
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

void Form::MoveFocusByPart(int step) {
    constexpr std::size_t kParts = 3;
    std::vector<Control*> parts[kParts];
    std::size_t at = 0;
    for (std::size_t i = 0; i < layout_.parts.size(); ++i) {
        auto& part = parts[std::min(i, kParts - 1)];
        Collect(layout_.parts[i], part);
        if (std::find(part.begin(), part.end(), focus_) != part.end()) at = std::min(i, kParts - 1);
    }
    for (std::size_t tries = 1; tries < kParts; ++tries) {
        at = (at + kParts + static_cast<std::size_t>(step)) % kParts;
        const auto stop = std::find_if(parts[at].begin(), parts[at].end(),
                                       [](Control* control) { return control->IsTabStop(); });
        if (stop != parts[at].end()) return MoveFocus(*stop);
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
    if (key == kKeyTab) {
        // With Ctrl it does nothing, so that the toolkit does nothing of its own either.
        if ((shift & ~kShift) == 0) MoveFocusBy(shift == kShift ? -1 : 1);
        return true;
    }
    if (key == kKeyF6 && (shift & ~kShift) == 0) {
        MoveFocusByPart(shift == kShift ? -1 : 1);
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
    return shift == kAlt && IsLetterOrDigit(key) && Mnemonic(static_cast<char>(key));
}

bool Form::KeyPress(char character) {
    Control* const control = focus_;
    if (control == nullptr) return true;
    CharEvent event{character};
    if (control->onKeyPress) control->onKeyPress(event);
    return event.handled || !open_ || control->HandleCharacter(character);
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
    return controls;
}

}  // namespace views
