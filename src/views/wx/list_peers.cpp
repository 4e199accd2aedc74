// List boxes, drop-down lists and drive lists.
#include <wx/choice.h>
#include <wx/listbox.h>

#include <utility>

#include "views/form.h"
#include "views/lists.h"
#include "views/wx/convert.h"
#include "views/wx/peer.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace views::wx {
namespace {

// Keys are the plain list's business, so the real one is worked by the mouse only.
class ListBoxPeer : public WindowPeer {
  public:
    ListBoxPeer(ListBox& plain, wxListBox* real)
        : WindowPeer(plain, real), plain_(plain), real_(real) {
        const int lines = plain.heightHint > 0 ? plain.heightHint : 6;
        const int columns = plain.widthHint > 0 ? plain.widthHint : 20;
        real_->SetMinSize(wxSize(DigitsWidth(real_, columns), HeightOf(lines)));
        // First of all it gets the focus, so that nothing but the entry under the mouse is chosen.
        real_->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
            event.Skip();
            Deliver([this] { plain_.SetFocus(); });
        });
        real_->Bind(wxEVT_LISTBOX, [this](wxCommandEvent& event) {
            const int index = event.GetSelection();
            if (showing_) return;
            if (event.IsSelection()) Deliver([&] { plain_.Choose(index); });
            ShowIndex();
        });
    }
    bool StretchesUpright() const override { return true; }
    int LeastHeight() const override { return HeightOf(4); }

    void Show(Aspect changed) override {
        if (changed != Aspect::kFocus) return WindowPeer::Show(changed);
        // Getting the focus, the toolkit's list may choose its first entry. Nobody did.
        showing_ = true;
        WindowPeer::Show(changed);
        ShowIndex();
        showing_ = false;
    }

  protected:
    bool CanWait(Aspect) const override { return true; }
    void Update(Aspect changed) override {
        const bool before = std::exchange(showing_, true);
        if (changed == Aspect::kItems) real_->Set(Strings(plain_.Items()));
        ShowIndex();
        showing_ = before;
    }
    void UpdateAll() override { Update(Aspect::kItems); }

  private:
    int HeightOf(int lines) const { return lines * (real_->GetCharHeight() + real_->FromDIP(4)); }

    void ShowIndex() {
        if (real_->GetSelection() == plain_.ListIndex()) return;
        real_->SetSelection(plain_.ListIndex());
        if (plain_.ListIndex() >= 0) real_->EnsureVisible(plain_.ListIndex());
    }

    ListBox& plain_;
    wxListBox* real_;
    bool showing_ = false;
};

// A list that drops down from the chosen entry; of a combo box without edit field and of a drive
// list, which are not related but look alike to the operator.
template <class Plain>
class ChoicePeer : public WindowPeer {
  public:
    ChoicePeer(Plain& plain, wxChoice* real) : WindowPeer(plain, real), plain_(plain), real_(real) {
        FitField(real, plain.widthHint);
#ifdef __WXGTK__
        // The mouse gives the focus to a part of it that the toolkit knows nothing of.
        g_signal_connect(
            real->GetHandle(), "notify::popup-shown",
            G_CALLBACK(+[](GObject*, GParamSpec*, ChoicePeer* peer) { peer->Enter(); }), this);
#endif
        real_->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
            const int index = event.GetSelection();
            Deliver([&] { plain_.Choose(index); });
            UpdateAll();  // the choice may have been refused or changed again
        });
        if constexpr (std::is_same_v<Plain, DriveList>) {
            // A memory stick may have come or gone since.
            real_->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
                event.Skip();
                Deliver([this] { plain_.Refresh(); });
            });
        }
    }
    bool HasKeys() const override { return ListHangsOpen(real_); }

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
    void Enter() {
        // A list that hangs open when the window closes is put away with it.
        if (!plain_.Owner().IsOpen()) return;
        Deliver([this] { plain_.SetFocus(); });
        if (plain_.HasFocus()) real_->SetFocus();
    }

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

}  // namespace

std::unique_ptr<WindowPeer> MakeListBoxPeer(Control& control, wxWindow* parent) {
    auto* real = new wxListBox(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                               wxLB_SINGLE | wxLB_NEEDED_SB | wxLB_HSCROLL);
    return std::make_unique<ListBoxPeer>(static_cast<ListBox&>(control), real);
}

std::unique_ptr<WindowPeer> MakeDropDownPeer(Control& control, wxWindow* parent) {
    return std::make_unique<ChoicePeer<ComboBox>>(static_cast<ComboBox&>(control),
                                                  new wxChoice(parent, wxID_ANY));
}

std::unique_ptr<WindowPeer> MakeDriveListPeer(Control& control, wxWindow* parent) {
    return std::make_unique<ChoicePeer<DriveList>>(static_cast<DriveList&>(control),
                                                   new wxChoice(parent, wxID_ANY));
}

}  // namespace views::wx
