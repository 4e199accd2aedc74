// The real controls behind the plain ones. A peer shows the state of its control and forwards what
// the operator did with it; it holds no rule of the system.
//
// The plain control is the truth. What the operator does inside a real one, as the toolkit handles
// keys and mouse there, is taken over before anything else is forwarded; everything else is put
// from the plain control onto the screen.
#pragma once

#include <wx/window.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <set>

#include "views/control.h"

namespace views::wx {

// Runs what the operator did in a window, after all real and plain controls have been brought into
// step: a handler finds the texts that stand on the screen.
//
// Nothing happens while a message box or another window is on top. The platform sees to that too,
// but only once the box is there: the second click of two quick ones comes before.
void Deliver(const Form& form, const std::function<void()>& event);

// A message box is on the screen as long as it lives.
class BoxOnTop {
  public:
    BoxOnTop();
    ~BoxOnTop();
    BoxOnTop(const BoxOnTop&) = delete;
    BoxOnTop& operator=(const BoxOnTop&) = delete;
};

class WindowPeer : public Peer {
  public:
    ~WindowPeer() override;

    wxWindow* Window() const { return window_; }

    void Show(Aspect changed) override;

    // Shows everything once and begins to forward; called when the window is built.
    void Start();

    // Brings the real and the plain control into step now.
    void Settle();
    // The operator is about to do, or has just done, something inside the real control that it may
    // not report.
    virtual void Look() {}

    // The window is about to go, and its controls with it.
    virtual void Leave() {}

    // The name by which screen readers tell the control.
    virtual void SetName(const wxString& name);

    // Whether all keys are for the real control, as while its list hangs open.
    virtual bool HasKeys() const { return false; }

    // The height in pixels with which it still serves where the screen is low; 0 where it needs all
    // that it asked for.
    virtual int LeastHeight() const { return 0; }

    // Whether the room of a row or of a column does the control good.
    virtual bool StretchesUpright() const { return false; }
    virtual bool StretchesAcross() const { return true; }

  protected:
    WindowPeer(Control& control, wxWindow* window) : control_(control), window_(window) {}

    void Deliver(const std::function<void()>& event) { wx::Deliver(control_.Owner(), event); }

    virtual void Update(Aspect changed) = 0;
    // Everything that Start shows.
    virtual void UpdateAll() = 0;
    // The part of the real control that has the focus and gets the keys.
    virtual wxWindow* InputWindow() const { return window_; }

    // Whether the change may be shown when the event at hand is done, once for any number of
    // them: filling a list entry by entry must not rebuild the real one each time.
    virtual bool CanWait(Aspect) const { return false; }

    // Settle is due when the event at hand is done.
    void Owe();
    virtual void BringIntoStep() {}

    // A character reaches the real control, and what the plain one has made of it stands there or
    // nothing has changed.
    virtual void BeforeCharacter() {}
    virtual void AfterCharacter() {}

  private:
    void ForwardFocus(wxFocusEvent& event);
    void ForwardCharacter(wxKeyEvent& event);

    Control& control_;
    wxWindow* window_;
    std::set<Aspect> waiting_;
    bool atCharacter_ = false;
};

// Makes the real control of a plain one.
std::unique_ptr<WindowPeer> MakePeer(Control& control, wxWindow* parent);

std::unique_ptr<WindowPeer> MakeLabelPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeFramePeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeButtonPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeCheckPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeOptionPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeSpinPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeTextBoxPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeComboPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeListBoxPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeDropDownPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeDriveListPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeGridPeer(Control& control, wxWindow* parent);

// The width in pixels of so many digits in the font of a window.
int DigitsWidth(const wxWindow* window, int count);

// Makes a field as wide as so many digits, where that is not 0, and high enough for its text: what
// the toolkit asks for it is too low where the system's texts are large.
template <class Field>
void FitField(Field* field, int digits) {
    const int height = field->GetCharHeight() + field->FromDIP(10);
    wxSize size(wxDefaultCoord, std::max(field->GetBestSize().y, height));
    if (digits > 0) size.x = field->GetSizeFromTextSize(DigitsWidth(field, digits + 1)).x;
    field->SetMinSize(size);
}

// Whether the list of a drop-down control hangs open and takes the keys.
bool ListHangsOpen(const wxWindow* window);

}  // namespace views::wx
