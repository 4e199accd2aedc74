// A screen that answers message boxes from a list and works the windows that are shown, in place of
// a person; for tests below the scripts (see script.h).
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "views/application.h"
#include "views/form.h"
#include "views/screen.h"

namespace test {

class ScriptedScreen : public views::Screen {
  public:
    ScriptedScreen() : before_(views::InstallScreen(this)) { views::ResetApplication(); }
    ~ScriptedScreen() override {
        views::InstallScreen(before_);
        views::ResetApplication();
    }

    // The answers of the boxes to come; without one a box is answered with No.
    std::deque<views::Answer> answers;
    // What is done in the windows to come; one left open afterwards is closed by its frame.
    std::deque<std::function<void(views::Form&)>> windows;
    // What was shown: "title|text".
    std::vector<std::string> log;

    int Width() const override { return 1000; }
    int Height() const override { return 800; }
    views::Answer Show(const views::Message& message) override {
        log.push_back(message.title + "|" + message.text);
        if (answers.empty()) return views::Answer::kNo;
        const auto answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void Beep() override {}
    void SetBusy(bool) override {}
    void Realise(views::Form& form) override { form.width = 400, form.height = 300; }
    void Run(views::Form& form) override {
        views::Guard([&] { form.Activate(); });
        if (!windows.empty()) {
            const auto work = windows.front();
            windows.pop_front();
            work(form);
        }
        if (form.IsOpen()) views::Guard([&] { form.RequestClose(); });
    }

  private:
    views::Screen* before_;
};

}  // namespace test
