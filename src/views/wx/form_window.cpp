#include "views/wx/form_window.h"

#include <wx/dialog.h>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/icon.h>
#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/statbox.h>

#include <algorithm>
#include <utility>

#include "packaging/sysman.xpm"
#include "views/application.h"
#include "views/basic_controls.h"
#include "views/wx/convert.h"
#include "views/wx/keys.h"

namespace views::wx {
namespace {

constexpr int kGap = 6;      // pixels between controls at 96 dpi
constexpr int kMargin = 10;  // around the contents of a window

wxTopLevelWindow* MakeWindow(const Form& form, wxWindow* parent) {
    const long resize = form.resizable ? wxRESIZE_BORDER | wxMAXIMIZE_BOX : 0;
    if (parent == nullptr) {
        const long style = wxDEFAULT_FRAME_STYLE & ~(wxRESIZE_BORDER | wxMAXIMIZE_BOX);
        return new wxFrame(nullptr, wxID_ANY, ToWx(form.Caption()), wxDefaultPosition,
                           wxDefaultSize, style | resize);
    }
    return new wxDialog(parent, wxID_ANY, ToWx(form.Caption()), wxDefaultPosition, wxDefaultSize,
                        wxDEFAULT_DIALOG_STYLE | resize);
}

}  // namespace

void ShowWholeTitle(wxTopLevelWindow& window) {
    constexpr int kButtons = 130;  // pixels at 96 dpi, for an icon and up to three of them
    const int title = window.GetTextExtent(window.GetTitle()).x + window.FromDIP(kButtons);
    const int most = wxSystemSettings::GetMetric(wxSYS_SCREEN_X) / 2;
    const wxSize least(std::max(window.GetMinSize().x, std::min(title, most)),
                       window.GetMinSize().y);
    window.SetMinSize(least);
    window.SetSize(wxSize(std::max(window.GetSize().x, least.x), window.GetSize().y));
}

FormWindow::FormWindow(Form& form, wxWindow* parent)
    : form_(form), window_(MakeWindow(form, parent)) {
    Build();
    form.SetPeer(this);
    window_->Bind(wxEVT_CHAR_HOOK, &FormWindow::ForwardKey, this);
    window_->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
        event.Veto();  // the form decides
        Deliver(form_, [this] { form_.RequestClose(); });
    });
}

FormWindow::~FormWindow() {
    form_.SetPeer(nullptr);
    for (auto& [plain, peer] : peers_) peer->Leave();
    // Before the peers, which events still waiting for the controls refer to.
    delete window_;
}

void FormWindow::Build() {
    // A frame needs a panel to give its controls the look of a dialog.
    wxWindow* parent = window_;
    if (dynamic_cast<wxFrame*>(window_) != nullptr) {
        parent = new wxPanel(window_);
        auto* whole = new wxBoxSizer(wxVERTICAL);
        whole->Add(parent, 1, wxEXPAND);
        window_->SetSizer(whole);
    }
    auto* margin = new wxBoxSizer(wxVERTICAL);
    margin->Add(Arrange(form_.GetLayout(), parent), 1, wxEXPAND | wxALL, window_->FromDIP(kMargin));
#ifdef __WXMSW__
    // A dialog that can be sized has a grip in its corner, higher than the margin.
    if (form_.resizable && parent == window_) {
        margin->AddSpacer(wxSystemSettings::GetMetric(wxSYS_HSCROLL_Y, window_) -
                          window_->FromDIP(kMargin - kGap));
    }
#endif
    parent->SetSizer(margin);
    for (auto& [plain, peer] : peers_) peer->Start();
    FitHeight();
    const wxSize needed = window_->GetSizer()->CalcMin(), room = Room();
    if (needed.x > room.x || needed.y > room.y) LetScroll(parent);
    // By the size inside the frame: that of its border is known only when it is shown.
    window_->GetSizer()->SetSizeHints(window_);
    ShowWholeTitle(*window_);
    form_.width = window_->GetSize().x;
    form_.height = window_->GetSize().y;
}

wxSizer* FormWindow::Arrange(const Layout& layout, wxWindow* parent) {
    switch (layout.kind) {
        case Layout::Kind::kFields:
            return ArrangeFields(layout, parent);
        case Layout::Kind::kFrame:
            return ArrangeFrame(layout, parent);
        default:
            return ArrangeLine(layout, parent);
    }
}

wxSizer* FormWindow::ArrangeLine(const Layout& layout, wxWindow* parent) {
    const bool upright = layout.kind != Layout::Kind::kRow;
    auto* sizer = new wxBoxSizer(upright ? wxVERTICAL : wxHORIZONTAL);
    if (layout.kind == Layout::Kind::kControl) {
        AddTo(sizer, layout, parent, upright, 0);
        return sizer;
    }
    int gap = 0;
    for (const Layout& part : layout.parts) {
        AddTo(sizer, part, parent, upright, gap);
        gap = window_->FromDIP(kGap);
    }
    return sizer;
}

void FormWindow::AddTo(wxSizer* sizer, const Layout& part, wxWindow* parent, bool upright,
                       int gap) {
    const int grow = part.grows ? 1 : 0;
    const int side = upright ? wxTOP : wxLEFT;
    if (part.kind == Layout::Kind::kStretch) {
        sizer->Add(0, 0, 1);
    } else if (part.kind == Layout::Kind::kControl) {
        const WindowPeer& peer = Make(*part.control, parent);
        // A control that is hidden for a while keeps its place.
        int flags = side | wxRESERVE_SPACE_EVEN_IF_HIDDEN;
        if (upright ? peer.StretchesAcross() : peer.StretchesUpright()) {
            flags |= wxEXPAND;
        } else if (!upright) {
            flags |= wxALIGN_CENTRE_VERTICAL;
        }
        sizer->Add(peer.Window(), grow, flags, gap);
    } else {
        sizer->Add(Arrange(part, parent), grow, side | wxEXPAND, gap);
    }
}

wxSizer* FormWindow::ArrangeFields(const Layout& layout, wxWindow* parent) {
    const int gap = window_->FromDIP(kGap);
    auto* sizer = new wxFlexGridSizer(2, gap, gap);
    sizer->AddGrowableCol(1);
    for (std::size_t i = 0; i < layout.parts.size(); ++i) {
        const Layout& part = layout.parts[i];
        const int place = wxALIGN_CENTRE_VERTICAL | (i % 2 == 1 ? wxEXPAND : 0);
        if (part.kind == Layout::Kind::kControl) {
            sizer->Add(Make(*part.control, parent).Window(), 0, place);
        } else {
            sizer->Add(Arrange(part, parent), 0, place);
        }
    }
    return sizer;
}

wxSizer* FormWindow::ArrangeFrame(const Layout& layout, wxWindow* parent) {
    auto* box = static_cast<wxStaticBox*>(Make(*layout.control, parent).Window());
    auto* sizer = new wxStaticBoxSizer(box, wxVERTICAL);
    sizer->Add(Arrange(layout.parts.front(), box), 1, wxEXPAND | wxALL, window_->FromDIP(kGap));
    return sizer;
}

WindowPeer& FormWindow::Make(Control& control, wxWindow* parent) {
    auto& peer = peers_[&control];
    peer = MakePeer(control, parent);
    return *peer;
}

WindowPeer* FormWindow::PeerOf(const Control* control) const {
    const auto found = peers_.find(control);
    return found == peers_.end() ? nullptr : found->second.get();
}

wxWindow* FormWindow::WindowOf(const Control& control) const {
    const WindowPeer* peer = PeerOf(&control);
    return peer == nullptr ? nullptr : peer->Window();
}

// What the screen has for the contents of a window, without a frame as window managers draw them.
wxSize FormWindow::Room() const {
    const wxSize frame = window_->FromDIP(wxSize(12, 40));
    return wxDisplay(0u).GetClientArea().GetSize() - frame;
}

// On a low screen, or with large texts, lists and grids give up lines before anything is cut off.
void FormWindow::FitHeight() {
    for (auto& [plain, peer] : peers_) {
        const int excess = window_->GetSizer()->CalcMin().y - Room().y;
        const wxSize size = peer->Window()->GetMinSize();
        if (excess <= 0) return;
        if (peer->LeastHeight() == 0 || peer->LeastHeight() >= size.y) continue;
        peer->Window()->SetMinSize(wxSize(size.x, std::max(size.y - excess, peer->LeastHeight())));
    }
}

// The contents of a window that no screen holds move in it; what gets the focus comes into view.
void FormWindow::LetScroll(wxWindow* page) {
    wxSizer* const contents = page->GetSizer();
    const wxSize needed = contents->CalcMin(), room = Room();
    auto* scrolled = new wxScrolledWindow(page, wxID_ANY);
    const wxWindowList parts = page->GetChildren();
    page->SetSizer(nullptr, false);
    for (wxWindow* part : parts) {
        if (part != scrolled) part->Reparent(scrolled);
    }
    scrolled->SetSizer(contents);
    const int step = window_->GetCharHeight();
    scrolled->SetScrollRate(step, step);
    scrolled->DisableKeyboardScrolling();  // the keys are the controls' own
    const int bar = wxSystemSettings::GetMetric(wxSYS_VSCROLL_X);
    wxSize shown = needed;
    if (needed.x > room.x) shown.IncBy(0, bar);
    if (needed.y > room.y) shown.IncBy(bar, 0);
    shown.DecTo(room);
    scrolled->SetMinSize(shown);
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(scrolled, 1, wxEXPAND);
    page->SetSizer(whole);
}

void FormWindow::Run() {
    window_->Move(form_.left, form_.top);
    window_->Bind(wxEVT_MOVE, &FormWindow::Place, this);
    window_->CallAfter([this] {
        Deliver(form_, [this] { form_.Activate(); });
        window_->SetIcon(wxICON(sysman));  // after the first picture, which need not wait for it
    });
    if (auto* dialog = dynamic_cast<wxDialog*>(window_)) {
        if (!closed_) dialog->ShowModal();
        return;
    }
    window_->Show();
    wxGUIEventLoop loop;
    loop_ = &loop;
    if (!closed_) loop.Run();
    loop_ = nullptr;
    window_->Hide();
}

// Some window managers put a new window where they like, but do move it when it is there. Only then
// is the size of their frame known, with which it may reach over the edge.
void FormWindow::Place(wxMoveEvent& event) {
    event.Skip();
    if (std::exchange(placed_, true)) return;
    window_->CallAfter([this] {
        const wxSize beside = wxGetDisplaySize() - window_->GetSize();
        window_->Move(std::max(std::min(form_.left, beside.x), 0),
                      std::max(std::min(form_.top, beside.y), 0));
    });
}

void FormWindow::ComeBack() {
    window_->CallAfter([this] { Deliver(form_, [this] { form_.Activate(); }); });
}

void FormWindow::ShowCaption() {
    window_->SetTitle(ToWx(form_.Caption()));
}

void FormWindow::Close() {
    if (std::exchange(closed_, true)) return;
    if (auto* dialog = dynamic_cast<wxDialog*>(window_)) {
        if (dialog->IsModal()) dialog->EndModal(wxID_OK);
    } else if (loop_ != nullptr) {
        loop_->ScheduleExit();
    }
}

void FormWindow::ForwardKey(wxKeyEvent& event) {
    WindowPeer* const peer = PeerOf(form_.Focus());
    const auto key = KeyOf(event);
    if (peer != nullptr) peer->Look();
    bool handled = false;
    const bool forForm = key && (peer == nullptr || !peer->HasKeys());
    Deliver(form_, [&] { handled = forForm && form_.KeyDown(*key, ShiftOf(event)); });
    if (handled || closed_) return;
    // What the toolkit makes of the key is seen afterwards.
    if (peer != nullptr) peer->Look();
    event.Skip();
}

}  // namespace views::wx
