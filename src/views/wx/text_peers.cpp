// Text boxes.
#include <wx/textctrl.h>
#include <wx/utils.h>

#include "views/application.h"
#include "views/text_box.h"
#include "views/wx/convert.h"
#include "views/wx/peer.h"

namespace views::mirror {
namespace {

class TextBoxPeer : public WindowPeer {
  public:
    TextBoxPeer(TextBox& plain, wxWindow* parent)
        : WindowPeer(plain, new wxTextCtrl(parent, wxID_ANY)), plain_(plain) {
        real_ = static_cast<wxTextCtrl*>(Window());
        if (plain.widthHint > 0) {
            const int width = DigitsWidth(real_, plain.widthHint + 1);
            real_->SetMinSize(real_->GetSizeFromTextSize(width));
        }
        real_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { Guard([this] { ForwardText(); }); });
    }

  protected:
    void Update(Aspect changed) override {
        if (changed == Aspect::kText && real_->GetValue() != ToWx(plain_.Text())) {
            real_->ChangeValue(ToWx(plain_.Text()));
            real_->SetInsertionPoint(0);
        }
        if (changed == Aspect::kSelection) {
            const auto start = static_cast<long>(plain_.SelStart());
            real_->SetSelection(start, start + static_cast<long>(plain_.SelLength()));
        }
    }
    void UpdateAll() override {
        Update(Aspect::kText);
        Update(Aspect::kSelection);
    }

  private:
    void ForwardText() {
        const auto text = FromWx(real_->GetValue());
        if (!text) {  // something was pasted that the system's characters cannot hold
            wxBell();
            Update(Aspect::kText);
            return;
        }
        plain_.Edited(*text, static_cast<std::size_t>(real_->GetInsertionPoint()));
        Update(Aspect::kText);  // where the control took less of it
    }

    TextBox& plain_;
    wxTextCtrl* real_;
};

}  // namespace

std::unique_ptr<WindowPeer> MakeTextPeer(Control& control, wxWindow* parent) {
    auto* text = dynamic_cast<TextBox*>(&control);
    return text != nullptr ? std::make_unique<TextBoxPeer>(*text, parent) : nullptr;
}

}  // namespace views::mirror
