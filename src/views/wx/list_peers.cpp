// List boxes, combo boxes and drive lists.
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/listbox.h>
#include <wx/utils.h>

#include "views/application.h"
#include "views/form.h"
#include "views/lists.h"
#include "views/wx/convert.h"
#include "views/wx/peer.h"

namespace views::mirror {
namespace {

wxArrayString Strings(const std::vector<std::string>& items) {
    wxArrayString result;
    for (const std::string& item : items) result.Add(ToWx(item));
    return result;
}

void SetWidth(wxControl& real, int hint) {
    if (hint > 0) real.SetMinSize(real.GetSizeFromTextSize(DigitsWidth(&real, hint + 1)));
}

class ListBoxPeer : public WindowPeer {
  public:
    ListBoxPeer(ListBox& plain, wxWindow* parent)
        : WindowPeer(plain, new wxListBox(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0,
                                          nullptr, wxLB_SINGLE | wxLB_NEEDED_SB)),
          plain_(plain),
          real_(static_cast<wxListBox*>(Window())) {
        const int lines = plain.heightHint > 0 ? plain.heightHint : 6;
        const int columns = plain.widthHint > 0 ? plain.widthHint : 20;
        real_->SetMinSize(wxSize(DigitsWidth(real_, columns),
                                 lines * (real_->GetCharHeight() + real_->FromDIP(4))));
        // Being tabbed into, a list without a selection may choose its first entry; only what the
        // mouse or a key has chosen is the operator's choice.
        real_->Bind(wxEVT_LEFT_DOWN, &ListBoxPeer::SeeInput<wxMouseEvent>, this);
        real_->Bind(wxEVT_KEY_DOWN, &ListBoxPeer::SeeInput<wxKeyEvent>, this);
        real_->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
            event.Skip();
            real_->CallAfter([this] { UpdateNow(), ShowIndex(); });
        });
        real_->Bind(wxEVT_LISTBOX,
                    [this](wxCommandEvent& event) { Guard([&] { Forward(event); }); });
        real_->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) {
            if (plain_.onDoubleClick) Guard(plain_.onDoubleClick);
        });
    }
    bool StretchesUpright() const override { return true; }

  protected:
    bool CanWait(Aspect) const override { return true; }
    void Update(Aspect changed) override {
        if (changed == Aspect::kItems) real_->Set(Strings(plain_.Items()));
        ShowIndex();
    }
    void UpdateAll() override { Update(Aspect::kItems); }

  private:
    void ShowIndex() {
        if (real_->GetSelection() == plain_.ListIndex()) return;
        real_->SetSelection(plain_.ListIndex());
        if (plain_.ListIndex() >= 0) real_->EnsureVisible(plain_.ListIndex());
    }

    template <class Event>
    void SeeInput(Event& event) {
        event.Skip();
        inputSeen_ = true;
    }

    void Forward(const wxCommandEvent& event) {
        UpdateNow();
        if (inputSeen_ && event.IsSelection()) plain_.Choose(event.GetSelection());
        inputSeen_ = false;
        ShowIndex();
    }

    ListBox& plain_;
    wxListBox* real_;
    bool inputSeen_ = false;
};

// A list that drops down from the chosen entry; of a combo box without edit field and of a drive
// list, which are not related but look alike to the operator.
template <class Plain>
class ChoicePeer : public WindowPeer {
  public:
    ChoicePeer(Plain& plain, wxWindow* parent)
        : WindowPeer(plain, new wxChoice(parent, wxID_ANY)),
          plain_(plain),
          real_(static_cast<wxChoice*>(Window())) {
        SetWidth(*real_, plain.widthHint);
        real_->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
            Guard([&] {
                plain_.Choose(event.GetSelection());
                UpdateAll();  // the choice may have been refused or changed again
            });
        });
        if constexpr (std::is_same_v<Plain, DriveList>) {
            // A memory stick may have come or gone since.
            real_->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
                event.Skip();
                Guard([this] { plain_.Refresh(); });
            });
        }
    }

  protected:
    void Update(Aspect changed) override {
        if (changed == Aspect::kItems) UpdateAll();
        if (changed == Aspect::kIndex || changed == Aspect::kText) real_->SetSelection(Index());
    }
    void UpdateAll() override {
        const wxArrayString items = Strings(plain_.Items());
        if (real_->GetStrings() != items) real_->Set(items);
        real_->SetSelection(Index());
    }

  private:
    int Index() const {
        if constexpr (std::is_same_v<Plain, DriveList>) {
            return plain_.Index();
        } else {
            return plain_.ListIndex();
        }
    }

    Plain& plain_;
    wxChoice* real_;
};

class ComboPeer : public WindowPeer {
  public:
    ComboPeer(ComboBox& plain, wxWindow* parent)
        : WindowPeer(plain, new wxComboBox(parent, wxID_ANY)),
          plain_(plain),
          real_(static_cast<wxComboBox*>(Window())) {
        SetWidth(*real_, plain.widthHint);
        real_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { Guard([this] { ForwardText(); }); });
        real_->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) {
            Guard([&] { plain_.Choose(event.GetSelection()); });
        });
    }

  protected:
    void Update(Aspect changed) override {
        // Every change from code passes here; what the toolkit reports of it is no typing.
        showing_ = true;
        if (changed == Aspect::kItems) {
            real_->Set(Strings(plain_.Items()));
            real_->ChangeValue(ToWx(plain_.Text()));
        }
        if (changed == Aspect::kText || changed == Aspect::kIndex) {
            if (real_->GetValue() != ToWx(plain_.Text())) real_->ChangeValue(ToWx(plain_.Text()));
        }
        if (changed == Aspect::kSelection) {
            const auto start = static_cast<long>(plain_.SelStart());
            real_->SetSelection(start, start + static_cast<long>(plain_.SelLength()));
        }
        showing_ = false;
    }
    void UpdateAll() override {
        Update(Aspect::kItems);
        Update(Aspect::kSelection);
    }

  private:
    void ForwardText() {
        // Picking an entry changes the text too; that is a choice, which is reported by itself.
        if (showing_ || real_->GetSelection() != wxNOT_FOUND) return;
        const auto text = FromWx(real_->GetValue());
        if (!text) {
            wxBell();
            Update(Aspect::kText);
            return;
        }
        plain_.Edited(*text, static_cast<std::size_t>(real_->GetInsertionPoint()));
        Update(Aspect::kText);
    }

    ComboBox& plain_;
    wxComboBox* real_;
    bool showing_ = false;
};

}  // namespace

std::unique_ptr<WindowPeer> MakeListPeer(Control& control, wxWindow* parent) {
    if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
        if (combo->HasEditField()) return std::make_unique<ComboPeer>(*combo, parent);
        return std::make_unique<ChoicePeer<ComboBox>>(*combo, parent);
    }
    if (auto* list = dynamic_cast<ListBox*>(&control)) {
        return std::make_unique<ListBoxPeer>(*list, parent);
    }
    if (auto* drives = dynamic_cast<DriveList*>(&control)) {
        return std::make_unique<ChoicePeer<DriveList>>(*drives, parent);
    }
    return nullptr;
}

}  // namespace views::mirror
