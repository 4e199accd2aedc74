#include "tests/support/scripted_screen.h"

#include <gtest/gtest.h>

#include <cctype>
#include <utility>

#include "views/application.h"
#include "views/basic_controls.h"
#include "views/keys.h"

namespace test {
namespace {

const char* NameOf(views::Buttons buttons) {
    switch (buttons) {
        case views::Buttons::kOk:
            return "OK";
        case views::Buttons::kOkCancel:
            return "OK/Cancel";
        case views::Buttons::kYesNo:
            return "Yes/No";
    }
    return "";
}

const char* NameOf(views::Icon icon) {
    switch (icon) {
        case views::Icon::kNone:
            return "none";
        case views::Icon::kExclamation:
            return "exclamation";
        case views::Icon::kQuestion:
            return "question";
        case views::Icon::kInformation:
            return "information";
        case views::Icon::kCritical:
            return "critical";
    }
    return "";
}

}  // namespace

ScriptedScreen::ScriptedScreen() : before_(views::InstallScreen(this)) {
    views::ResetApplication();
}

ScriptedScreen::~ScriptedScreen() {
    EXPECT_TRUE(answers.empty()) << "a message box was expected and not shown";
    EXPECT_TRUE(windows.empty()) << "a window was expected and not shown";
    EXPECT_EQ(busy, 0) << "the pointer is still busy";
    views::InstallScreen(before_);
    views::ResetApplication();
}

std::vector<std::string> ScriptedScreen::TakeLog() {
    return std::exchange(log, {});
}

views::Answer ScriptedScreen::Show(const views::Message& message) {
    log.push_back(Box(message.title, message.text, NameOf(message.buttons), NameOf(message.icon)));
    if (message.buttons == views::Buttons::kOk) return views::Answer::kOk;
    if (answers.empty()) {
        ADD_FAILURE() << "nobody answers: " << log.back();
        return message.buttons == views::Buttons::kYesNo ? views::Answer::kNo
                                                         : views::Answer::kCancel;
    }
    const auto answer = answers.front();
    answers.pop_front();
    return answer;
}

void ScriptedScreen::Realise(views::Form& form) {
    form.width = 400;
    form.height = 300;
}

void ScriptedScreen::Run(views::Form& form) {
    views::Guard([&] { form.Activate(); });
    if (!windows.empty()) {
        const auto work = windows.front();
        windows.pop_front();
        work(form);
    }
    if (form.IsOpen()) views::Guard([&] { form.RequestClose(); });
    EXPECT_FALSE(form.IsOpen()) << form.Name() << " stays open";
}

std::string Box(const std::string& title, const std::string& text, const std::string& buttons,
                const std::string& icon) {
    return title + "|" + text + "|" + buttons + "|" + icon;
}

void Keyboard::Press(int key, int shift) {
    views::Guard([&] {
        if (form_.KeyDown(key, shift)) return;
        if (key == views::kKeySpace) {
            if (auto* button = dynamic_cast<views::CommandButton*>(form_.Focus())) {
                return button->Press();
            }
            if (auto* check = dynamic_cast<views::CheckBox*>(form_.Focus())) {
                return check->Toggle();
            }
        }
        if (key == views::kKeyBackspace) form_.KeyPress('\b');
    });
}

void Keyboard::Type(std::string_view text) {
    for (char c : text) {
        views::Guard([&] {
            const int key = std::toupper(static_cast<unsigned char>(c));
            const bool named = views::IsLetterOrDigit(key) || key <= views::kKeySpace;
            if (!form_.KeyDown(named ? key : views::kKeyOther, 0)) form_.KeyPress(c);
        });
    }
}

}  // namespace test
