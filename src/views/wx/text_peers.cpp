// Text boxes and combo boxes with an edit field.
#include <wx/combobox.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <algorithm>
#include <utility>

#include "views/application.h"
#include "views/form.h"
#include "views/lists.h"
#include "views/text_box.h"
#include "views/wx/convert.h"
#include "views/wx/peer.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace views::wx {
namespace {

// What the operator types is put into the plain text, not by the toolkit into the real one: on GTK
// the toolkit has removed the selection and settled on a place before it tells of the character.
// What the toolkit does by itself (caret, deleting, cutting, pasting) is taken over from the real
// one.
class TextPeer : public WindowPeer {
  public:
    TextPeer(Control& control, TextPart& plain, wxWindow* window, wxTextEntry& real)
        : WindowPeer(control, window), control_(control), plain_(plain), real_(real) {
        window->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
            if (!showing_) Owe();
        });
        // The mouse, and on Windows some keys, reach a part of it that the toolkit tells nothing
        // of.
        window->Bind(wxEVT_IDLE, [this](wxIdleEvent&) {
            if (control_.HasFocus()) BringIntoStep();
        });
    }
    void Look() override { Owe(); }

  protected:
    void Update(Aspect changed) override {
        if (changed == Aspect::kText || changed == Aspect::kIndex ||
            changed == Aspect::kSelection) {
            ShowText();
        }
    }
    void UpdateAll() override { ShowText(); }

    void BeforeCharacter() override { ahead_ = Ahead::kNeither; }
    void AfterCharacter() override {
        ShowText();
        // Once more when the toolkit is done: it puts the caret where it thinks it belongs.
        ahead_ = Ahead::kPlain;
        Owe();
    }
    void BringIntoStep() override {
        if (ahead_ == Ahead::kNeither) return;
        std::exchange(ahead_, Ahead::kReal) == Ahead::kPlain ? ShowText() : TakeText();
    }

    bool showing_ = false;  // what the toolkit reports is not the operator's doing

  private:
    void ShowText() {
        const bool before = std::exchange(showing_, true);
        const wxString now = real_.GetValue(), wanted = ToWx(plain_.Text());
        if (now != wanted) {
            ahead_ == Ahead::kNeither ? ReplaceDifference(now, wanted) : real_.ChangeValue(wanted);
        }
        const auto start = static_cast<long>(plain_.SelStart());
        const long end = start + static_cast<long>(plain_.SelLength());
        long from = 0, to = 0;
        real_.GetSelection(&from, &to);
        if (from != start || to != end) real_.SetSelection(start, end);
        showing_ = before;
    }

    // So that Ctrl+Z can take it back where the platform has that.
    void ReplaceDifference(const wxString& now, const wxString& wanted) {
        size_t same = 0, behind = 0;
        const size_t shorter = std::min(now.length(), wanted.length());
        while (same < shorter && now[same] == wanted[same]) ++same;
        while (behind < shorter - same &&
               now[now.length() - 1 - behind] == wanted[wanted.length() - 1 - behind]) {
            ++behind;
        }
        real_.Replace(static_cast<long>(same), static_cast<long>(now.length() - behind),
                      wanted.substr(same, wanted.length() - behind - same));
    }

    void TakeText() {
        const auto text = FromWx(real_.GetValue());
        if (!text) {  // something was pasted that the system's characters cannot hold
            wxBell();
            return ShowText();
        }
        long from = 0, to = 0;
        real_.GetSelection(&from, &to);
        if (*text == plain_.Text()) {
            return plain_.Selected(static_cast<std::size_t>(from),
                                   static_cast<std::size_t>(to - from));
        }
        const auto caret = static_cast<std::size_t>(real_.GetInsertionPoint());
        Guard([&] {
            // Dropped or pasted by a menu, it was edited without having the focus.
            if (!control_.HasFocus()) control_.SetFocus();
            plain_.Edited(*text, caret);
        });
        ShowText();  // where the control took less of it
    }

    Control& control_;
    TextPart& plain_;
    wxTextEntry& real_;
    // Which of the two texts has what the other one lacks; neither while a character that was typed
    // or an entry that was picked is dealt with.
    enum class Ahead { kReal, kPlain, kNeither };
    Ahead ahead_ = Ahead::kReal;
};

class TextBoxPeer : public TextPeer {
  public:
    TextBoxPeer(TextBox& plain, wxTextCtrl* real) : TextPeer(plain, plain, real, *real) {
        FitField(real, plain.widthHint);
    }
};

class ComboPeer : public TextPeer {
  public:
    ComboPeer(ComboBox& plain, wxComboBox* real)
        : TextPeer(plain, plain, real, *real), plain_(plain), real_(real) {
        FitField(real, plain.widthHint);
#ifdef __WXGTK__
        // Its arrow takes the focus when it is pressed, and the toolkit tells nothing of that.
        g_signal_connect(real->GetHandle(), "notify::popup-shown",
                         G_CALLBACK(+[](GObject*, GParamSpec*, ComboPeer* peer) { peer->Enter(); }),
                         this);
#endif
        real_->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) {
            // The text has changed with it; that is no typing.
            BeforeCharacter();
            Deliver([&] { plain_.Choose(event.GetSelection()); });
            AfterCharacter();
        });
    }
    bool HasKeys() const override { return ListHangsOpen(real_); }

  protected:
    void Update(Aspect changed) override {
        if (changed == Aspect::kItems) {
            showing_ = true;
            real_->Set(Strings(plain_.Items()));
            showing_ = false;
        }
        TextPeer::Update(changed == Aspect::kItems ? Aspect::kText : changed);
    }
    void UpdateAll() override { Update(Aspect::kItems); }

  private:
    void Enter() {
        // A list that hangs open when the window closes is put away with it.
        if (!plain_.Owner().IsOpen()) return;
        Deliver([this] { plain_.SetFocus(); });
        if (plain_.HasFocus()) real_->SetFocus();
    }

    ComboBox& plain_;
    wxComboBox* real_;
};

}  // namespace

std::unique_ptr<WindowPeer> MakeTextBoxPeer(Control& control, wxWindow* parent) {
    return std::make_unique<TextBoxPeer>(static_cast<TextBox&>(control),
                                         new wxTextCtrl(parent, wxID_ANY));
}

std::unique_ptr<WindowPeer> MakeComboPeer(Control& control, wxWindow* parent) {
    return std::make_unique<ComboPeer>(static_cast<ComboBox&>(control),
                                       new wxComboBox(parent, wxID_ANY));
}

}  // namespace views::wx
