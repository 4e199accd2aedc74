// Labels, frames, buttons, check boxes, option buttons and spin buttons.
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/spinbutt.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include "views/application.h"
#include "views/basic_controls.h"
#include "views/form.h"
#include "views/wx/arrow_pair.h"
#include "views/wx/convert.h"
#include "views/wx/peer.h"

namespace views::mirror {
namespace {

template <class Plain, class Real>
class CaptionPeer : public WindowPeer {
  public:
    CaptionPeer(Plain& plain, Real* real) : WindowPeer(plain, real), plain_(plain), real_(real) {}

  protected:
    void Update(Aspect changed) override {
        if (changed == Aspect::kText) real_->SetLabel(ToWx(plain_.Caption()));
    }
    void UpdateAll() override { Update(Aspect::kText); }

    Plain& plain_;
    Real* real_;
};

class LabelPeer : public CaptionPeer<Label, wxStaticText> {
  public:
    LabelPeer(Label& plain, wxWindow* parent)
        : CaptionPeer(plain, new wxStaticText(parent, wxID_ANY, wxString())) {}
};

class FramePeer : public CaptionPeer<Frame, wxStaticBox> {
  public:
    FramePeer(Frame& plain, wxWindow* parent)
        : CaptionPeer(plain, new wxStaticBox(parent, wxID_ANY, ToWx(plain.Caption()))) {}
    bool StretchesUpright() const override { return true; }
};

class ButtonPeer : public CaptionPeer<CommandButton, wxButton> {
  public:
    ButtonPeer(CommandButton& plain, wxWindow* parent)
        : CaptionPeer(plain, new wxButton(parent, wxID_ANY, ToWx(plain.Caption()))) {
        real_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Guard([this] { plain_.Press(); }); });
    }
};

class CheckPeer : public CaptionPeer<CheckBox, wxCheckBox> {
  public:
    CheckPeer(CheckBox& plain, wxWindow* parent)
        : CaptionPeer(plain, new wxCheckBox(parent, wxID_ANY, ToWx(plain.Caption()))) {
        real_->Bind(wxEVT_CHECKBOX,
                    [this](wxCommandEvent&) { Guard([this] { plain_.Toggle(); }); });
    }

  protected:
    void Update(Aspect changed) override {
        if (changed == Aspect::kValue) real_->SetValue(plain_.Value());
        CaptionPeer::Update(changed);
    }
    void UpdateAll() override {
        CaptionPeer::UpdateAll();
        Update(Aspect::kValue);
    }
};

// A radio button cannot be cleared, only released by another of its group. So each group has one
// more that nobody sees, which is set when none of the others is.
class OptionPeer : public CaptionPeer<OptionButton, wxRadioButton> {
  public:
    OptionPeer(OptionButton& plain, wxWindow* parent, wxRadioButton* nobody)
        : CaptionPeer(plain, new wxRadioButton(parent, wxID_ANY, ToWx(plain.Caption()))),
          nobody_(nobody) {
        real_->Bind(wxEVT_RADIOBUTTON,
                    [this](wxCommandEvent&) { Guard([this] { plain_.Pick(); }); });
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
    void UpdateAll() override {
        CaptionPeer::UpdateAll();
        Update(Aspect::kValue);
    }

  private:
    wxRadioButton* nobody_;
};

// The toolkit groups radio buttons by their order in one parent; the first of a plain group begins
// a new one.
wxRadioButton* NobodyOf(const OptionButton& plain, wxWindow* parent) {
    const wxString name = wxString::Format("nobody-%p", static_cast<const void*>(&plain.Group()));
    if (wxWindow* existing = wxWindow::FindWindowByName(name, parent)) {
        return static_cast<wxRadioButton*>(existing);
    }
    auto* nobody = new wxRadioButton(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                     wxRB_GROUP, wxDefaultValidator, name);
    nobody->Hide();
    return nobody;
}

wxWindow* MakeArrows(SpinButton& plain, wxWindow* parent) {
    const auto up = [&plain] { Guard([&plain] { plain.Up(); }); };
    const auto down = [&plain] { Guard([&plain] { plain.Down(); }); };
#ifdef __WXGTK__
    return new ArrowPair(parent, up, down);
#else
    auto* real = new wxSpinButton(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                  wxSP_VERTICAL | wxSP_ARROW_KEYS);
    // The plain control has no value of its own, so the real one never leaves its middle.
    real->SetRange(-1, 1);
    real->Bind(wxEVT_SPIN_UP, [up](wxSpinEvent& event) { event.Veto(), up(); });
    real->Bind(wxEVT_SPIN_DOWN, [down](wxSpinEvent& event) { event.Veto(), down(); });
    return real;
#endif
}

class SpinPeer : public WindowPeer {
  public:
    SpinPeer(SpinButton& plain, wxWindow* parent) : WindowPeer(plain, MakeArrows(plain, parent)) {}
    bool StretchesAcross() const override { return false; }

  protected:
    void Update(Aspect) override {}
    void UpdateAll() override {}
};

}  // namespace

std::unique_ptr<WindowPeer> MakeBasicPeer(Control& control, wxWindow* parent) {
    if (auto* frame = dynamic_cast<Frame*>(&control)) {
        return std::make_unique<FramePeer>(*frame, parent);
    }
    if (auto* label = dynamic_cast<Label*>(&control)) {
        return std::make_unique<LabelPeer>(*label, parent);
    }
    if (auto* button = dynamic_cast<CommandButton*>(&control)) {
        return std::make_unique<ButtonPeer>(*button, parent);
    }
    if (auto* check = dynamic_cast<CheckBox*>(&control)) {
        return std::make_unique<CheckPeer>(*check, parent);
    }
    if (auto* option = dynamic_cast<OptionButton*>(&control)) {
        return std::make_unique<OptionPeer>(*option, parent, NobodyOf(*option, parent));
    }
    if (auto* spin = dynamic_cast<SpinButton*>(&control)) {
        return std::make_unique<SpinPeer>(*spin, parent);
    }
    return nullptr;
}

}  // namespace views::mirror
