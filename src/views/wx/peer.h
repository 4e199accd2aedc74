// The real controls behind the plain ones. A peer shows the state of its control and forwards what
// the operator did with it; it holds no rule of the system.
#pragma once

#include <wx/window.h>

#include <memory>
#include <set>

#include "views/control.h"

namespace views::mirror {

class WindowPeer : public Peer {
  public:
    ~WindowPeer() override;

    wxWindow* Window() const { return window_; }

    void Show(Aspect changed) override;

    // Shows everything once and begins to forward; called when the window is built.
    void Start();

    // Whether the room of a row or of a column does the control good.
    virtual bool StretchesUpright() const { return false; }
    virtual bool StretchesAcross() const { return true; }

  protected:
    WindowPeer(Control& control, wxWindow* window) : control_(control), window_(window) {}

    virtual void Update(Aspect changed) = 0;
    // Everything that Start shows.
    virtual void UpdateAll() = 0;
    // The part of the real control that has the focus and gets the keys.
    virtual wxWindow* InputWindow() const { return window_; }

    // Whether the change may be shown when the event at hand is done, once for any number of
    // them: filling a list entry by entry must not rebuild the real one each time.
    virtual bool CanWait(Aspect) const { return false; }
    // Shows what waits, before an event that counts on it is forwarded.
    void UpdateNow();

  private:
    void ForwardFocus(wxFocusEvent& event);
    void ForwardCharacter(wxKeyEvent& event);

    Control& control_;
    wxWindow* window_;
    std::set<Aspect> waiting_;
};

// Makes the real control of a plain one.
std::unique_ptr<WindowPeer> MakePeer(Control& control, wxWindow* parent);

// By kind; null when the control is of another.
std::unique_ptr<WindowPeer> MakeBasicPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeTextPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeListPeer(Control& control, wxWindow* parent);
std::unique_ptr<WindowPeer> MakeGridPeer(Control& control, wxWindow* parent);

// The width in pixels of so many digits in the font of a window.
int DigitsWidth(const wxWindow* window, int count);

}  // namespace views::mirror
