#include "views/wx/wx_screen.h"

#include <wx/msgdlg.h>
#include <wx/utils.h>

#include "views/form.h"
#include "views/wx/convert.h"
#include "views/wx/peer.h"

#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#else
#include <wx/generic/msgdlgg.h>  // counts on what stands above
#endif

namespace views::wx {
namespace {

// The system's texts separate their lines by CR or LF.
wxString WithLines(const std::string& text) {
    wxString lines = ToWx(text);
    lines.Replace("\r\n", "\n");
    lines.Replace("\r", "\n");
    return lines;
}

#ifdef __WXMSW__

// The platform's own box. The toolkit shows a task dialog here, which has no question icon and
// takes "&" in a name for a mnemonic.
bool AskBox(wxWindow* parent, const Message& message) {
    UINT style = message.buttons == Buttons::kOk         ? MB_OK
                 : message.buttons == Buttons::kOkCancel ? MB_OKCANCEL
                                                         : MB_YESNO;
    switch (message.icon) {
        case Icon::kNone:
            break;
        case Icon::kExclamation:
            style |= MB_ICONEXCLAMATION;
            break;
        case Icon::kQuestion:
            style |= MB_ICONQUESTION;
            break;
        case Icon::kInformation:
            style |= MB_ICONINFORMATION;
            break;
        case Icon::kCritical:
            style |= MB_ICONERROR;
            break;
    }
    const HWND owner = parent == nullptr ? nullptr : static_cast<HWND>(parent->GetHandle());
    int answer = 0;
    do {
        answer = ::MessageBoxW(owner, WithLines(message.text).wc_str(),
                               ToWx(message.title).wc_str(), style);
        // A question with Yes and No has nothing that Escape could mean. Wine ends it all the same,
        // and the Escape that asks to close a window would answer whether to save.
    } while (message.buttons == Buttons::kYesNo && answer == IDCANCEL);
    return answer == IDOK || answer == IDYES;
}

#else

// The toolkit's own box: the one of GTK draws no icons.
bool AskBox(wxWindow* parent, const Message& message) {
    long style = wxCENTRE;
    style |= message.buttons == Buttons::kOk         ? wxOK
             : message.buttons == Buttons::kOkCancel ? wxOK | wxCANCEL
                                                     : wxYES_NO;
    switch (message.icon) {
        case Icon::kNone:
            break;
        case Icon::kExclamation:
            style |= wxICON_EXCLAMATION;
            break;
        case Icon::kQuestion:
            style |= wxICON_QUESTION;
            break;
        case Icon::kInformation:
            style |= wxICON_INFORMATION;
            break;
        case Icon::kCritical:
            style |= wxICON_ERROR;
            break;
    }
    wxGenericMessageDialog box(parent, WithLines(message.text), ToWx(message.title), style);
    if (message.buttons == Buttons::kYesNo) box.SetEscapeId(wxID_NO);
    // It gets its size when it is about to be shown.
    box.Bind(wxEVT_INIT_DIALOG, [&box](wxInitDialogEvent& event) {
        event.Skip();
        ShowWholeTitle(box);
        box.CentreOnParent();
    });
    const int answer = box.ShowModal();
    return answer == wxID_OK || answer == wxID_YES;
}

#endif

}  // namespace

int WxScreen::Width() const {
    return wxGetDisplaySize().x;
}

int WxScreen::Height() const {
    return wxGetDisplaySize().y;
}

Answer WxScreen::Show(const Message& message) {
    bool yes = false;
    {
        const BoxOnTop box;
        yes = AskBox(TopWindow(), message);
    }
    if (Top() != nullptr) Top()->ComeBack();
    switch (message.buttons) {
        case Buttons::kOk:
            return Answer::kOk;
        case Buttons::kOkCancel:
            return yes ? Answer::kOk : Answer::kCancel;
        case Buttons::kYesNo:
            break;
    }
    return yes ? Answer::kYes : Answer::kNo;
}

void WxScreen::Beep() {
    wxBell();
}

void WxScreen::SetBusy(bool busy) {
    if (busy) {
        wxBeginBusyCursor();
    } else if (wxIsBusy()) {
        wxEndBusyCursor();
    }
}

void WxScreen::Realise(Form& form) {
    windows_.push_back(std::make_unique<FormWindow>(form, TopWindow()));
}

void WxScreen::Run(Form&) {
    Top()->Run();
    windows_.pop_back();
    if (Top() != nullptr) Top()->ComeBack();
}

}  // namespace views::wx
