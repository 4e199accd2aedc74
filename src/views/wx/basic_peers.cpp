// Labels, frames, buttons, check boxes, option buttons and spin buttons.
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/timer.h>
#include <wx/utils.h>

#include "views/basic_controls.h"
#include "views/form.h"
#include "views/wx/accessible.h"
#include "views/wx/convert.h"
#include "views/wx/peer.h"

namespace views::wx {
namespace {

// The real control is made with the caption that the plain one has then.
template <class Plain, class Real>
class CaptionPeer : public WindowPeer {
  public:
    CaptionPeer(Plain& plain, wxWindow* parent)
        : CaptionPeer(plain, new Real(parent, wxID_ANY, ToWx(plain.Caption()))) {}

    bool StretchesUpright() const override { return std::is_same_v<Real, wxStaticBox>; }

  protected:
    CaptionPeer(Plain& plain, Real* real) : WindowPeer(plain, real), plain_(plain), real_(real) {}

    void Update(Aspect changed) override {
        if (changed == Aspect::kText) real_->SetLabel(ToWx(plain_.Caption()));
    }
    void UpdateAll() override {}

    Plain& plain_;
    Real* real_;
};

class ButtonPeer : public CaptionPeer<CommandButton, wxButton> {
  public:
    ButtonPeer(CommandButton& plain, wxWindow* parent) : CaptionPeer(plain, parent) {
        real_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Deliver([this] { plain_.Press(); }); });
    }
};

class CheckPeer : public CaptionPeer<CheckBox, wxCheckBox> {
  public:
    CheckPeer(CheckBox& plain, wxWindow* parent) : CaptionPeer(plain, parent) {
        real_->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) {
            Deliver([this] { plain_.Toggle(); });
            Update(Aspect::kValue);  // it may have refused
        });
    }

  protected:
    void Update(Aspect changed) override {
        if (changed == Aspect::kValue) real_->SetValue(plain_.Value());
        CaptionPeer::Update(changed);
    }
    void UpdateAll() override { Update(Aspect::kValue); }
};

// The toolkit groups radio buttons by their order in one parent; the first of a plain group begins
// a new one.
//
// A radio button cannot be cleared, only released by another of its group. So each group has one
// more that nobody sees, which is set when none of the others is.
wxRadioButton* NobodyOf(const OptionButton& plain, wxWindow* parent) {
    const wxString name = wxString::Format("nobody-%p", static_cast<const void*>(&plain.Group()));
    if (wxWindow* existing = wxWindow::FindWindowByName(name, parent)) {
        return static_cast<wxRadioButton*>(existing);
    }
    auto* nobody = new wxRadioButton(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                     wxRB_GROUP, wxDefaultValidator, name);
    nobody->Hide();
    nobody->Disable();  // or it takes the focus on Windows when it is set
    return nobody;
}

class OptionPeer : public CaptionPeer<OptionButton, wxRadioButton> {
  public:
    OptionPeer(OptionButton& plain, wxWindow* parent, wxRadioButton* nobody)
        : CaptionPeer(plain, parent), nobody_(nobody) {
        real_->Bind(wxEVT_RADIOBUTTON, [this](wxCommandEvent&) {
            Deliver([this] { plain_.Pick(); });
            for (OptionButton* option : plain_.Group().buttons) option->Changed(Aspect::kValue);
        });
    }

  protected:
    void Update(Aspect changed) override {
        if (changed == Aspect::kValue) {
            if (plain_.Value()) {
                real_->SetValue(true);
            } else if (real_->GetValue()) {
                nobody_->SetValue(true);
            }
        }
        CaptionPeer::Update(changed);
    }
    void UpdateAll() override { Update(Aspect::kValue); }

  private:
    wxRadioButton* nobody_;
};

// Two small buttons side by side. One that is held down repeats its step.
class SpinPeer : public WindowPeer {
  public:
    SpinPeer(SpinButton& plain, wxWindow* parent)
        : WindowPeer(plain, new wxPanel(parent)), plain_(plain) {
        auto* row = new wxBoxSizer(wxHORIZONTAL);
        down_ = MakeButton(row, wxString::FromUTF8("\u25BC"), "One less", &SpinButton::Down);
        up_ = MakeButton(row, wxString::FromUTF8("\u25B2"), "One more", &SpinButton::Up);
        Window()->SetSizerAndFit(row);
        repeat_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Repeat(); });
    }
    bool StretchesAcross() const override { return false; }

  protected:
    void Update(Aspect) override {}
    void UpdateAll() override {}
    wxWindow* InputWindow() const override { return up_; }

  private:
    using Step = void (SpinButton::*)();
    // Milliseconds until a held button repeats its step, and between its repetitions.
    static constexpr int kDelay = 400, kInterval = 70;

    wxButton* MakeButton(wxSizer* row, const wxString& label, const wxString& name, Step step) {
        auto* button = new wxButton(Window(), wxID_ANY, label, wxDefaultPosition, wxDefaultSize,
                                    wxBU_EXACTFIT);
        SetSpokenName(button, name);
        button->SetToolTip(name);
        button->Bind(wxEVT_BUTTON, [this, step](wxCommandEvent&) {
            if (!std::exchange(repeated_, false)) Deliver([&] { (plain_.*step)(); });
        });
        button->Bind(wxEVT_LEFT_DOWN, [this, step](wxMouseEvent& event) {
            event.Skip();
            held_ = step;
            repeated_ = false;
            repeat_.StartOnce(kDelay);
        });
        button->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
            event.Skip();
            repeat_.Stop();
        });
        row->Add(button, 1, wxEXPAND);
        return button;
    }

    void Repeat() {
        if (!wxGetMouseState().LeftIsDown()) return;  // a message box took the mouse
        repeated_ = true;
        repeat_.StartOnce(kInterval);
        Deliver([this] { (plain_.*held_)(); });
    }

    SpinButton& plain_;
    wxButton *down_, *up_;
    wxTimer repeat_;
    Step held_ = nullptr;
    bool repeated_ = false;  // while it was held, so that letting go is no step more
};

template <class Plain>
Plain& As(Control& control) {
    return static_cast<Plain&>(control);
}

}  // namespace

std::unique_ptr<WindowPeer> MakeLabelPeer(Control& control, wxWindow* parent) {
    return std::make_unique<CaptionPeer<Label, wxStaticText>>(As<Label>(control), parent);
}

std::unique_ptr<WindowPeer> MakeFramePeer(Control& control, wxWindow* parent) {
    return std::make_unique<CaptionPeer<Frame, wxStaticBox>>(As<Frame>(control), parent);
}

std::unique_ptr<WindowPeer> MakeButtonPeer(Control& control, wxWindow* parent) {
    return std::make_unique<ButtonPeer>(As<CommandButton>(control), parent);
}

std::unique_ptr<WindowPeer> MakeCheckPeer(Control& control, wxWindow* parent) {
    return std::make_unique<CheckPeer>(As<CheckBox>(control), parent);
}

std::unique_ptr<WindowPeer> MakeOptionPeer(Control& control, wxWindow* parent) {
    auto& option = As<OptionButton>(control);
    // Before the option's own, as the first of the group.
    wxRadioButton* nobody = NobodyOf(option, parent);
    return std::make_unique<OptionPeer>(option, parent, nobody);
}

std::unique_ptr<WindowPeer> MakeSpinPeer(Control& control, wxWindow* parent) {
    return std::make_unique<SpinPeer>(As<SpinButton>(control), parent);
}

}  // namespace views::wx
