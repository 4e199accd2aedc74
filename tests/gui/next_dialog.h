// A person who waits for a dialog that another window opens, and works in it.
#pragma once

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/modalhook.h>

#include <functional>
#include <utility>

#include "tests/gui/person.h"

namespace test {

// Does the steps in the next dialog once it has the focus, and closes it if they have not. Made
// before the step that opens the dialog, as that one comes back only when the dialog is closed.
class InNextDialog : public wxModalDialogHook {
  public:
    explicit InNextDialog(std::function<void(wxDialog&)> steps) : steps_(std::move(steps)) {
        Register();
    }
    ~InNextDialog() override {
        EXPECT_TRUE(done_) << "no dialog has appeared";
        if (!entered_) Unregister();
    }

  protected:
    int Enter(wxDialog* dialog) override {
        entered_ = true;
        Unregister();
        wxTheApp->CallAfter([this, dialog] {
            done_ = Until([dialog] {
                wxWindow* focus = wxWindow::FindFocus();
                return focus != nullptr && wxGetTopLevelParent(focus) == dialog;
            });
            if (done_) steps_(*dialog);
            if (dialog->IsModal()) dialog->Close();
        });
        return wxID_NONE;
    }

  private:
    std::function<void(wxDialog&)> steps_;
    bool entered_ = false;
    bool done_ = false;
};

}  // namespace test
