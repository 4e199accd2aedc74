#include "views/wx/wx_screen.h"

#include <wx/msgdlg.h>
#include <wx/utils.h>

#include "views/form.h"
#include "views/wx/convert.h"

namespace views::mirror {
namespace {

long StyleOf(const Message& message) {
    long style = wxCENTRE;
    switch (message.buttons) {
        case Buttons::kOk:
            style |= wxOK;
            break;
        case Buttons::kOkCancel:
            style |= wxOK | wxCANCEL;
            break;
        case Buttons::kYesNo:
            style |= wxYES_NO;
            break;
    }
    switch (message.icon) {
        case Icon::kNone:
            return style | wxICON_NONE;
        case Icon::kExclamation:
            return style | wxICON_EXCLAMATION;
        case Icon::kQuestion:
            return style | wxICON_QUESTION;
        case Icon::kInformation:
            return style | wxICON_INFORMATION;
        case Icon::kCritical:
            return style | wxICON_ERROR;
    }
    return style;
}

// The system's texts separate their lines by CR or LF.
wxString WithLines(const std::string& text) {
    wxString lines = ToWx(text);
    lines.Replace("\r\n", "\n");
    lines.Replace("\r", "\n");
    return lines;
}

}  // namespace

int WxScreen::Width() const {
    return wxGetDisplaySize().x;
}

int WxScreen::Height() const {
    return wxGetDisplaySize().y;
}

Answer WxScreen::Show(const Message& message) {
    wxMessageDialog box(TopWindow(), WithLines(message.text), ToWx(message.title),
                        StyleOf(message));
    const int answer = box.ShowModal();
    switch (message.buttons) {
        case Buttons::kOk:
            return Answer::kOk;
        case Buttons::kOkCancel:
            return answer == wxID_OK ? Answer::kOk : Answer::kCancel;
        case Buttons::kYesNo:
            break;
    }
    return answer == wxID_YES ? Answer::kYes : Answer::kNo;
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
}

}  // namespace views::mirror
