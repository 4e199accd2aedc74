// The two arrows of a spin button for GTK, whose own one always has an entry beside its arrows.
#pragma once

#include <wx/control.h>
#include <wx/timer.h>

#include <functional>

namespace views::mirror {

// An arrow up above an arrow down. Pressing one of them with the mouse reports a step, and further
// ones as long as it is held down. Keys are the window's business.
class ArrowPair : public wxControl {
  public:
    ArrowPair(wxWindow* parent, std::function<void()> up, std::function<void()> down);

    bool Enable(bool enable = true) override;

  protected:
    wxSize DoGetBestClientSize() const override;

  private:
    enum class Arrow { kNone, kUp, kDown };

    wxRect RectOf(Arrow arrow) const;
    void Paint();
    void PaintArrow(wxDC& dc, Arrow arrow);
    void Press(wxMouseEvent& event);
    void Release();
    void Step();

    std::function<void()> up_, down_;
    Arrow held_ = Arrow::kNone;
    wxTimer repeat_;
};

}  // namespace views::mirror
