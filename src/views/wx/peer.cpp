#include "views/wx/peer.h"

#include <wx/utils.h>

#include <utility>

#include "views/application.h"
#include "views/form.h"
#include "views/spoken_name.h"
#include "views/wx/accessible.h"
#include "views/wx/convert.h"
#include "views/wx/keys.h"

#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

namespace views::wx {
namespace {

// The peers whose real and plain controls may be out of step.
std::set<WindowPeer*>& Owing() {
    static std::set<WindowPeer*> owing;
    return owing;
}

int g_boxes = 0;

}  // namespace

void Deliver(const Form& form, const std::function<void()>& event) {
    if (g_boxes > 0 || TopForm() != &form) return;
    while (!Owing().empty()) (*Owing().begin())->Settle();
    Guard(event);
}

BoxOnTop::BoxOnTop() {
    ++g_boxes;
}

BoxOnTop::~BoxOnTop() {
    --g_boxes;
}

WindowPeer::~WindowPeer() {
    Owing().erase(this);
    control_.SetPeer(nullptr);
}

void WindowPeer::Start() {
    control_.SetPeer(this);
    UpdateAll();
    Show(Aspect::kEnabled);
    Show(Aspect::kVisible);
    const std::string name = SpokenName(control_);
    if (!name.empty()) SetName(ToWx(name));
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
            Look();
            break;
        default:
            if (!CanWait(changed)) return Update(changed);
            waiting_.insert(changed);
            Owe();
    }
}

void WindowPeer::SetName(const wxString& name) {
    SetSpokenName(window_, name);
}

void WindowPeer::Owe() {
    if (Owing().insert(this).second) window_->CallAfter([this] { Settle(); });
}

void WindowPeer::Settle() {
    if (Owing().erase(this) == 0) return;
    const auto changes = std::exchange(waiting_, {});
    for (Aspect changed : changes) Update(changed);
    BringIntoStep();
}

void WindowPeer::ForwardFocus(wxFocusEvent& event) {
    event.Skip();
    // An event may arrive when the focus has gone elsewhere already, and before the window has
    // appeared the toolkit tries the focus on controls that nobody chose.
    Form& form = control_.Owner();
    if (form.Focus() == nullptr || wxWindow::FindFocus() != InputWindow()) return;
    Deliver([&] { form.MoveFocus(&control_); });
    Look();
}

void WindowPeer::ForwardCharacter(wxKeyEvent& event) {
    const Typing typing = TypingOf(event);
    // While one is dealt with, GTK takes the text that is put into the real control for typed too.
    if (typing.kind == Typing::Kind::kNone || atCharacter_) return event.Skip();
    atCharacter_ = true;
    bool taken = true;
    BeforeCharacter();
    if (typing.kind == Typing::Kind::kTyped) {
        Deliver([&] { taken = control_.Owner().KeyPress(typing.character); });
    } else if (typing.kind == Typing::Kind::kUnknown) {
        wxBell();
    }
    AfterCharacter();
    atCharacter_ = false;
    if (!taken) event.Skip();
}

std::unique_ptr<WindowPeer> MakePeer(Control& control, wxWindow* parent) {
    const auto make = [&]() -> std::unique_ptr<WindowPeer> {
        switch (control.GetKind()) {
            case Control::Kind::kLabel:
                return MakeLabelPeer(control, parent);
            case Control::Kind::kFrame:
                return MakeFramePeer(control, parent);
            case Control::Kind::kButton:
                return MakeButtonPeer(control, parent);
            case Control::Kind::kCheckBox:
                return MakeCheckPeer(control, parent);
            case Control::Kind::kOption:
                return MakeOptionPeer(control, parent);
            case Control::Kind::kTextBox:
                return MakeTextBoxPeer(control, parent);
            case Control::Kind::kListBox:
                return MakeListBoxPeer(control, parent);
            case Control::Kind::kDropDownList:
                return MakeDropDownPeer(control, parent);
            case Control::Kind::kComboBox:
                return MakeComboPeer(control, parent);
            case Control::Kind::kDriveList:
                return MakeDriveListPeer(control, parent);
            case Control::Kind::kSpinButton:
                return MakeSpinPeer(control, parent);
            case Control::Kind::kGrid:
                return MakeGridPeer(control, parent);
        }
        return nullptr;
    };
    auto peer = make();
    // Names tell the controls apart for tests and in traces.
    peer->Window()->SetName(wxString::FromUTF8(control.Name()));
    return peer;
}

int DigitsWidth(const wxWindow* window, int count) {
    return window->GetTextExtent(wxString(static_cast<size_t>(count), '0')).x;
}

#ifdef __WXGTK__

// An open list is a window of its own here, and the keys go there.
bool ListHangsOpen(const wxWindow*) {
    return false;
}

#else

bool ListHangsOpen(const wxWindow* window) {
    return ::SendMessage(static_cast<HWND>(window->GetHandle()), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

#endif

}  // namespace views::wx
