#include "views/control.h"

#include "text/code_page.h"
#include "text/strings.h"
#include "views/form.h"

namespace views {

Control::Control(Form& owner, std::string_view name, Kind kind)
    : owner_(owner), name_(name), kind_(kind) {
    owner.Register(*this);
}

void Control::SetEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    if (!enabled && HasFocus()) owner_.MoveFocusOn();
    Changed(Aspect::kEnabled);
}

void Control::SetVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    if (!visible && HasFocus()) owner_.MoveFocusOn();
    Changed(Aspect::kVisible);
}

bool Control::HasFocus() const {
    return owner_.Focus() == this;
}

void Control::SetFocus() {
    if (CanTakeFocus()) owner_.MoveFocus(this);
}

bool Control::HandleKey(int, int) {
    return false;
}

CaptionedControl::CaptionedControl(Form& owner, std::string_view name, Kind kind,
                                   std::string_view caption)
    : Control(owner, name, kind), caption_(text::UntilNul(caption)) {}

void CaptionedControl::SetCaption(std::string_view caption) {
    caption_ = text::UntilNul(caption);
    Changed(Aspect::kText);
}

bool CaptionedControl::HandleMnemonic(char letter) {
    if (!Enabled() || !Visible()) return false;
    for (std::size_t at = 0; at + 1 < caption_.size(); ++at) {
        if (caption_[at] != '&') continue;
        if (caption_[++at] == '&') continue;  // "&&" shows one "&"
        if (text::UpperChar(caption_[at]) != text::UpperChar(letter)) return false;
        OnMnemonic();
        return true;
    }
    return false;
}

}  // namespace views
