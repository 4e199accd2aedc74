#include "tests/gui/person.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/modalhook.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>
#include <wx/uiaction.h>
#include <wx/utils.h>
#include <wx/window.h>

#include <cstdio>
#include <cstdlib>

#include "views/application.h"
#include "views/screen.h"
#include "views/wx/wx_screen.h"

namespace test {
namespace {

constexpr long kPatience = 20000;  // milliseconds

views::mirror::WxScreen& TheRealScreen() {
    return dynamic_cast<views::mirror::WxScreen&>(views::TheScreen());
}

// Input goes through the display server and back; a moment without any event tells that it came.
void Settle() {
    for (int quiet = 0; quiet < 3; ++quiet) {
        wxMilliSleep(5);
        while (wxTheApp->Pending()) wxTheApp->Dispatch();
        wxTheApp->ProcessPendingEvents();
        wxYield();
    }
}

// Presses the key again and again until the box is gone: it takes the focus when it likes.
class BoxAnswer : public wxModalDialogHook, public wxTimer {
  public:
    explicit BoxAnswer(int key) : key_(key) { Register(); }

  protected:
    int Enter(wxDialog*) override {
        waited_.Start();
        Start(100);
        return wxID_NONE;
    }
    void Exit(wxDialog*) override {
        Stop();
        Unregister();
        wxTheApp->ScheduleForDestruction(this);
    }
    void Notify() override {
        if (waited_.Time() > kPatience) {
            std::fputs("a message box cannot be answered\n", stderr);
            std::_Exit(1);  // nothing else ends a box that nobody answers
        }
        wxUIActionSimulator().Char(key_);
    }

  private:
    int key_;
    wxStopWatch waited_;
};

}  // namespace

void WorkIn(views::Form& form, const std::function<void()>& steps) {
    views::ResetApplication();  // a test before may have ended its run
    bool done = false;
    wxTheApp->CallAfter([&] {
        EXPECT_TRUE(Until([&] { return form.Focus() != nullptr; })) << "the window does not appear";
        EXPECT_TRUE(Until([&] {
            wxWindow* real = form.Focus() != nullptr ? RealOf(*form.Focus()) : nullptr;
            wxWindow* focus = wxWindow::FindFocus();
            return real != nullptr && focus != nullptr &&
                   (focus == real || focus->GetParent() == real);
        })) << "the window does not get the focus";
        if (!::testing::Test::HasFailure()) steps();
        done = true;
        if (form.IsOpen()) form.Close();
    });
    views::ShowModal(form);
    EXPECT_TRUE(done);
}

wxWindow* RealOf(const views::Control& control) {
    auto* top = TheRealScreen().Top();
    return top == nullptr ? nullptr : top->WindowOf(control);
}

void Click(const views::Control& control) {
    ClickAt([&] {
        const wxWindow* real = RealOf(control);
        const wxSize size = real->GetSize();
        return real->GetScreenPosition() + wxPoint(std::min(size.x / 2, 12), size.y / 2);
    });
}

void ClickAt(const std::function<wxPoint()>& where, bool twice) {
    wxUIActionSimulator simulator;
    wxPoint at;
    do {
        at = where();
        simulator.MouseMove(at);
        Settle();
    } while (at != where());
    if (twice) {
        simulator.MouseDblClick();
    } else {
        simulator.MouseClick();
    }
    Settle();
}

void Key(int key, int modifiers) {
    wxUIActionSimulator().Char(key, modifiers);
    Settle();
}

void Type(const char* text) {
    for (; *text != '\0'; ++text) Key(*text);
}

bool Until(const std::function<bool()>& condition) {
    const wxStopWatch watch;
    while (!condition()) {
        if (watch.Time() > kPatience) return false;
        Settle();
    }
    return true;
}

void AnswerNextBox(bool yes) {
#ifdef _WIN32
    const int no = 'N';  // a Yes/No box of this platform cannot be dismissed
#else
    const int no = WXK_ESCAPE;
#endif
    new BoxAnswer(yes ? WXK_RETURN : no);
}

}  // namespace test
