// The real screen: message boxes, beep, pointer and windows of the toolkit.
#pragma once

#include <memory>
#include <vector>

#include "views/screen.h"
#include "views/wx/form_window.h"

namespace views::wx {

class WxScreen : public Screen {
  public:
    int Width() const override;
    int Height() const override;
    Answer Show(const Message& message) override;
    void Beep() override;
    void SetBusy(bool busy) override;
    void Realise(Form& form) override;
    void Run(Form& form) override;

    // The window on top, null before the first; for tests.
    FormWindow* Top() const { return windows_.empty() ? nullptr : windows_.back().get(); }

  private:
    wxWindow* TopWindow() const { return Top() == nullptr ? nullptr : Top()->Window(); }

    std::vector<std::unique_ptr<FormWindow>> windows_;
};

}  // namespace views::wx
