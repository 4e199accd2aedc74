#include "views/wx/peer.h"

#include <wx/utils.h>

#include "text/code_page.h"
#include "views/application.h"
#include "views/form.h"
#include "views/view_procedures.h"

namespace views::mirror {

WindowPeer::~WindowPeer() {
    control_.SetPeer(nullptr);
}

void WindowPeer::Start() {
    control_.SetPeer(this);
    UpdateAll();
    Show(Aspect::kEnabled);
    Show(Aspect::kVisible);
    InputWindow()->Bind(wxEVT_SET_FOCUS, &WindowPeer::ForwardFocus, this);
    InputWindow()->Bind(wxEVT_CHAR, &WindowPeer::ForwardCharacter, this);
}

void WindowPeer::Show(Aspect changed) {
    switch (changed) {
        case Aspect::kEnabled:
            if (window_->IsThisEnabled() != control_.Enabled()) window_->Enable(control_.Enabled());
            break;
        case Aspect::kVisible:
            if (window_->IsShown() != control_.Visible()) window_->Show(control_.Visible());
            break;
        case Aspect::kFocus:
            if (!InputWindow()->HasFocus()) InputWindow()->SetFocus();
            break;
        default:
            if (!CanWait(changed)) return Update(changed);
            if (waiting_.empty()) window_->CallAfter([this] { UpdateNow(); });
            waiting_.insert(changed);
    }
}

void WindowPeer::UpdateNow() {
    const auto changes = std::exchange(waiting_, {});
    for (Aspect changed : changes) Update(changed);
}

void WindowPeer::ForwardFocus(wxFocusEvent& event) {
    event.Skip();
    // An event may arrive when the focus has gone elsewhere already, and before the window has
    // appeared the toolkit tries the focus on controls that nobody chose.
    Form& form = control_.Owner();
    if (form.Focus() == nullptr || wxWindow::FindFocus() != InputWindow()) return;
    Guard([&] { form.MoveFocus(&control_); });
}

void WindowPeer::ForwardCharacter(wxKeyEvent& event) {
    const wxChar unicode = event.GetUnicodeKey();
    const bool backspace = event.GetKeyCode() == WXK_BACK;
    const bool types = unicode >= 32 && unicode != 127 && !event.CmdDown();
    if (!types && !backspace) {
        event.Skip();
        return;
    }
    const auto byte = backspace ? static_cast<char>(kKeyBackspace)
                                : text::FromUnicode(static_cast<char32_t>(unicode));
    if (!byte) {
        wxBell();
        return;
    }
    bool refused = true;
    Guard([&] {
        UpdateNow();
        refused = control_.Owner().KeyPress(*byte);
    });
    if (!refused) event.Skip();
}

std::unique_ptr<WindowPeer> MakePeer(Control& control, wxWindow* parent) {
    for (auto make : {MakeBasicPeer, MakeTextPeer, MakeListPeer, MakeGridPeer}) {
        if (auto peer = make(control, parent)) {
            // Names tell the controls apart for assistive programs and for tests.
            peer->Window()->SetName(wxString::FromUTF8(control.Name()));
            return peer;
        }
    }
    return nullptr;
}

int DigitsWidth(const wxWindow* window, int count) {
    return window->GetTextExtent(wxString(static_cast<size_t>(count), '0')).x;
}

}  // namespace views::mirror
