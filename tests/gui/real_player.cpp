#include "tests/gui/real_player.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/msgdlg.h>
#include <wx/textentry.h>
#include <wx/timer.h>
#include <wx/uiaction.h>
#include <wx/window.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <utility>

#include "tests/gui/keyboard.h"
#include "tests/gui/person.h"
#include "text/code_page.h"
#include "views/application.h"
#include "views/keys.h"

#ifdef _WIN32
#include <wx/msw/wrapwin.h>
#else
#include <wx/generic/msgdlgg.h>  // counts on what stands above
#endif

namespace test {
namespace {

// Gives a message box its answer by keyboard. It takes the focus when it likes.
class BoxAnswer : public wxTimer {
  public:
    explicit BoxAnswer(views::Answer answer) {
        if (answer == views::Answer::kYes || answer == views::Answer::kOk) key_ = WXK_RETURN;
#ifdef _WIN32
        if (answer == views::Answer::kNo) key_ = 'N';  // the platform's question has no Escape
#endif
        Start(100);
    }

  private:
    void Notify() override {
        if (++tries_ > 200) {
            std::fputs("a message box cannot be answered\n", stderr);
            std::_Exit(1);  // nothing else ends a box that nobody answers
        }
#ifdef _WIN32
        // Of the platform's own box the toolkit knows nothing. Pressed twice, the second key would
        // answer the box that comes next.
        wchar_t kind[8] = L"";
        ::GetClassNameW(::GetForegroundWindow(), kind, 8);
        if (kind != std::wstring(L"#32770") || std::exchange(pressed_, true)) return;
#else
        wxWindow* const focus = wxWindow::FindFocus();
        wxWindow* const top = focus == nullptr ? nullptr : wxGetTopLevelParent(focus);
        if (dynamic_cast<wxGenericMessageDialog*>(top) == nullptr) return;
#endif
        wxUIActionSimulator().Char(key_);
    }

    int key_ = WXK_ESCAPE, tries_ = 0;
#ifdef _WIN32
    bool pressed_ = false;
#endif
};

}  // namespace

void RealPlayer::Start(views::Form& form) {
    UseRealScreen();
    real_ = views::InstallScreen(this);
    views::Guard([&] { views::ShowModal(form); });
    views::InstallScreen(real_);
}

void RealPlayer::Run(views::Form& form) {
    wxTheApp->CallAfter([&] {
        WaitForFocus(form);
        WorkIn(form);
    });
    real_->Run(form);
}

views::Answer RealPlayer::Show(const views::Message& message) {
    const auto answer = Decide(message);
    const BoxAnswer byKeyboard(answer);
    EXPECT_EQ(real_->Show(message), answer) << message.title;
    return answer;
}

void RealPlayer::Press(views::Form&, int key, int shift) {
    static const std::map<int, int> kCodes = {
        {views::kKeyLeft, WXK_LEFT},     {views::kKeyRight, WXK_RIGHT},
        {views::kKeyUp, WXK_UP},         {views::kKeyDown, WXK_DOWN},
        {views::kKeyHome, WXK_HOME},     {views::kKeyEnd, WXK_END},
        {views::kKeyPageUp, WXK_PAGEUP}, {views::kKeyPageDown, WXK_PAGEDOWN},
        {views::kKeyF6, WXK_F6}};
    const auto code = kCodes.find(key);
    Key(code != kCodes.end() ? code->second : key, (shift & views::kShift ? wxMOD_SHIFT : 0) |
                                                       (shift & views::kCtrl ? wxMOD_CONTROL : 0) |
                                                       (shift & views::kAlt ? wxMOD_ALT : 0));
}

void RealPlayer::Type(views::Form& form, char character) {
    if (own && character == '*') return own(form);
    // Of this layout; those of others are typed in the keyboard tests.
    const bool hasKey = character >= ' ' && character <= '~';
    if (!hasKey) return views::Guard([&] { form.KeyPress(character); });
    TypeCharacter(text::ToUnicode(character));
    Settle();
}

void RealPlayer::Click(views::Control& control) {
    test::Click(control);
}

void RealPlayer::Paste(views::Control& control, const std::string& text) {
    dynamic_cast<wxTextEntry&>(*RealOf(control)).SetValue(wxString::FromUTF8(text::ToUtf8(text)));
    Settle();
}

void RealPlayer::ClickCell(views::Grid& grid, int row, int column, bool twice) {
    test::ClickCell(grid, row, column, twice);
}

std::string RealPlayer::Differences(const views::Form& form) {
    Until([&] { return test::Differences(form).empty(); }, 3000);
    return test::Differences(form);
}

}  // namespace test
