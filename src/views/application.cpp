#include "views/application.h"

#include <algorithm>
#include <exception>
#include <utility>
#include <vector>

#include "views/form.h"
#include "views/screen.h"
#include "views/view_procedures.h"

namespace views {
namespace {

// Carries the end of the run through the code of the windows below the one that ended it.
struct Ended {};

struct Run {
    std::vector<Form*> open;  // the last one is on top
    std::function<void()> onFailure;
    bool ended = false;
    int exitStatus = 0;
};

Run& TheRun() {
    static Run run;
    return run;
}

void Fail(const char* reason) {
    if (TheRun().ended) return;
    TheScreen().Show({reason, "Quarvel System Manager", Buttons::kOk, Icon::kCritical});
    const auto action = std::exchange(TheRun().onFailure, nullptr);
    if (action) action();
    EndApplication(1);
}

}  // namespace

void Guard(const std::function<void()>& event) {
    try {
        if (!ApplicationEnded()) event();
    } catch (const Ended&) {
        // The windows are closed already.
    } catch (const std::exception& failure) {
        Fail(failure.what());
    }
}

void ShowModal(Form& form) {
    form.Open();
    if (form.IsOpen() && !ApplicationEnded()) {
        TheRun().open.push_back(&form);
        TheScreen().Realise(form);
        CentreForm(form);
        TheScreen().Run(form);
        std::erase(TheRun().open, &form);
    }
    if (ApplicationEnded()) throw Ended();
}

const Form* TopForm() {
    return TheRun().open.empty() ? nullptr : TheRun().open.back();
}

void EndApplication(int exitStatus) {
    if (TheRun().ended) return;
    TheRun().ended = true;
    TheRun().exitStatus = exitStatus;
    const auto open = TheRun().open;
    std::for_each(open.rbegin(), open.rend(), [](Form* form) { form->Dismiss(); });
}

bool ApplicationEnded() {
    return TheRun().ended;
}

int ExitStatus() {
    return TheRun().exitStatus;
}

void OnFailure(std::function<void()> action) {
    TheRun().onFailure = std::move(action);
}

void ResetApplication() {
    TheRun() = Run();
}

}  // namespace views
