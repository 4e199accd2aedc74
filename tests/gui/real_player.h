// Plays scripts in real windows, by a real keyboard and mouse. Entries of lists are chosen and the
// focus set as a script reader would, without either; "click" on a list takes the mouse, though.
#pragma once

#include "tests/support/script.h"

namespace test {

class RealPlayer : public Player, private views::Screen {
  public:
    // What a test does itself, as the deed '*'.
    std::function<void(views::Form&)> own;

  protected:
    // What is done in each window, and said to each message box.
    virtual void WorkIn(views::Form& form) { Work(form); }
    virtual views::Answer Decide(const views::Message& message) { return Answer(message); }

    void Start(views::Form& form) override;
    void Press(views::Form& form, int key, int shift) override;
    void Type(views::Form& form, char character) override;
    void Click(views::Control& control) override;
    void Paste(views::Control& control, const std::string& text) override;
    void ClickCell(views::Grid& grid, int row, int column, bool twice) override;
    std::string Differences(const views::Form& form) override;

  private:
    int Width() const override { return real_->Width(); }
    int Height() const override { return real_->Height(); }
    views::Answer Show(const views::Message& message) override;
    void Beep() override { Player::Beep(); }
    void SetBusy(bool busy) override { real_->SetBusy(busy); }
    void Realise(views::Form& form) override { real_->Realise(form); }
    void Run(views::Form& form) override;

    views::Screen* real_ = nullptr;
};

}  // namespace test
