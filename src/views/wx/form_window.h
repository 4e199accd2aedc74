// The real window of a form: its controls arranged by the form's layout, its keys and its closing
// forwarded to the form.
#pragma once

#include <wx/evtloop.h>
#include <wx/toplevel.h>

#include <map>
#include <memory>
#include <vector>

#include "views/form.h"
#include "views/wx/peer.h"

class wxSizer;

namespace views::wx {

// Makes a small window no narrower than its title with the buttons beside it.
void ShowWholeTitle(wxTopLevelWindow& window);

class FormWindow : public FormPeer {
  public:
    // A window of its own without a parent, else a dialog of the parent.
    FormWindow(Form& form, wxWindow* parent);
    ~FormWindow() override;

    // Shows it at the form's place until the form is closed.
    void Run();

    // The window is on top again: the focus is where it was, wherever the toolkit puts it.
    void ComeBack();

    void ShowCaption() override;
    void Close() override;

    wxTopLevelWindow* Window() const { return window_; }
    wxWindow* WindowOf(const Control& control) const;

  private:
    void Build();
    wxSizer* Arrange(const Layout& layout, wxWindow* parent);
    wxSizer* ArrangeLine(const Layout& layout, wxWindow* parent);
    wxSizer* ArrangeFields(const Layout& layout, wxWindow* parent);
    wxSizer* ArrangeFrame(const Layout& layout, wxWindow* parent);
    void AddTo(wxSizer* sizer, const Layout& part, wxWindow* parent, bool upright, int gap);
    WindowPeer& Make(Control& control, wxWindow* parent);
    WindowPeer* PeerOf(const Control* control) const;
    void ForwardKey(wxKeyEvent& event);
    wxSize Room() const;
    void FitHeight();
    void LetScroll(wxWindow* page);
    void Place(wxMoveEvent& event);

    Form& form_;
    wxTopLevelWindow* window_;
    std::map<const Control*, std::unique_ptr<WindowPeer>> peers_;
    wxEventLoopBase* loop_ = nullptr;  // of a window without a parent, while it is shown
    bool closed_ = false;
    bool placed_ = false;
};

}  // namespace views::wx
