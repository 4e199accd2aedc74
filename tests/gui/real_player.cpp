#include "tests/gui/real_player.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/textentry.h>
#include <wx/window.h>

#include <map>

#include "tests/gui/keyboard.h"
#include "tests/gui/person.h"
#include "text/code_page.h"
#include "views/application.h"
#include "views/keys.h"

namespace test {

void RealPlayer::Start(views::Form& form) {
    UseRealScreen();
    real_ = views::InstallScreen(this);
    views::Guard([&] { views::ShowModal(form); });
    views::InstallScreen(real_);
}

void RealPlayer::Run(views::Form& form) {
    wxTheApp->CallAfter([&] {
        WaitForFocus(form);
        Work(form);
    });
    real_->Run(form);
}

views::Answer RealPlayer::Show(const views::Message& message) {
    const auto answer = Answer(message);
    AnswerNextBox(answer == views::Answer::kYes || answer == views::Answer::kOk);
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
