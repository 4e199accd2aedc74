#include "views/wx/arrow_pair.h"

#include <wx/dcbuffer.h>
#include <wx/renderer.h>
#include <wx/settings.h>
#include <wx/utils.h>

#include <algorithm>
#include <utility>

namespace views::mirror {
namespace {

// Milliseconds until a held arrow repeats its step, and between its repetitions.
constexpr int kDelay = 400, kInterval = 70;

}  // namespace

ArrowPair::ArrowPair(wxWindow* parent, std::function<void()> up, std::function<void()> down)
    : wxControl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE),
      up_(std::move(up)),
      down_(std::move(down)) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetMinSize(GetBestSize());
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
    Bind(wxEVT_LEFT_DOWN, &ArrowPair::Press, this);
    Bind(wxEVT_LEFT_DCLICK, &ArrowPair::Press, this);  // the second of two quick steps
    Bind(wxEVT_LEFT_UP, [this](wxMouseEvent&) { Release(); });
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { Release(); });
    for (auto kind : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS}) {
        Bind(kind, [this](wxFocusEvent& event) {
            event.Skip();
            Refresh();
        });
    }
    repeat_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        if (!wxGetMouseState().LeftIsDown()) return Release();  // a message box took the mouse
        repeat_.Start(kInterval);
        Step();
    });
}

bool ArrowPair::Enable(bool enable) {
    if (!wxControl::Enable(enable)) return false;
    Refresh();
    return true;
}

// As high as a text box, which it stands beside.
wxSize ArrowPair::DoGetBestClientSize() const {
    const int height = GetCharHeight() + FromDIP(14);
    return {height * 2 / 3, height};
}

wxRect ArrowPair::RectOf(Arrow arrow) const {
    wxRect half = GetClientRect();
    const int upper = half.height / 2;
    if (arrow == Arrow::kUp) {
        half.height = upper;
    } else {
        half.y += upper;
        half.height -= upper;
    }
    return half;
}

void ArrowPair::Paint() {
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(wxBrush(GetParent()->GetBackgroundColour()));
    dc.Clear();
    PaintArrow(dc, Arrow::kUp);
    PaintArrow(dc, Arrow::kDown);
    if (HasFocus()) {
        const wxRect inside = GetClientRect().Deflate(FromDIP(2));
        wxRendererNative::Get().DrawFocusRect(this, dc, inside, 0);
    }
}

void ArrowPair::PaintArrow(wxDC& dc, Arrow arrow) {
    const wxRect half = RectOf(arrow);
    int state = 0;
    if (held_ == arrow) state |= wxCONTROL_PRESSED;
    if (!IsEnabled()) state |= wxCONTROL_DISABLED;
    wxRendererNative::Get().DrawPushButton(this, dc, half, state);
    const wxColour colour =
        wxSystemSettings::GetColour(IsEnabled() ? wxSYS_COLOUR_BTNTEXT : wxSYS_COLOUR_GRAYTEXT);
    dc.SetPen(wxPen(colour));
    dc.SetBrush(wxBrush(colour));
    const int reach = std::max(half.height / 5, 2);
    const int base = arrow == Arrow::kUp ? reach / 2 : -reach / 2;
    const int tip = base + (arrow == Arrow::kUp ? -reach : reach);
    const wxPoint corners[] = {{-reach, base}, {reach, base}, {0, tip}};
    dc.DrawPolygon(3, corners, half.x + half.width / 2, half.y + half.height / 2);
}

void ArrowPair::Press(wxMouseEvent& event) {
    held_ = RectOf(Arrow::kUp).Contains(event.GetPosition()) ? Arrow::kUp : Arrow::kDown;
    if (!HasCapture()) CaptureMouse();
    repeat_.Start(kDelay);
    Refresh();
    Step();
}

void ArrowPair::Release() {
    repeat_.Stop();
    held_ = Arrow::kNone;
    if (HasCapture()) ReleaseMouse();
    Refresh();
}

void ArrowPair::Step() {
    if (held_ == Arrow::kUp) up_();
    if (held_ == Arrow::kDown) down_();
}

}  // namespace views::mirror
