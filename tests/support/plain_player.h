// Plays scripts by events of the plain controls, without real windows.
#pragma once

#include "tests/support/script.h"

namespace test {

class PlainPlayer : public Player, private views::Screen {
  protected:
    void Start(views::Form& form) override;
    void Press(views::Form& form, int key, int shift) override;
    void Type(views::Form& form, char character) override;
    void Click(views::Control& control) override;
    void Paste(views::Control& control, const std::string& text) override;
    void ClickCell(views::Grid& grid, int row, int column, bool twice) override;
    bool Told(const views::Control& control, views::Aspect aspect) override;
    void Forget(const views::Form& form) override;

  private:
    // In place of a real control; keeps what it was told to show anew.
    struct Mirror : views::Peer {
        std::set<views::Aspect> told;
        void Show(views::Aspect changed) override { told.insert(changed); }
    };

    int Width() const override { return 1000; }
    int Height() const override { return 800; }
    views::Answer Show(const views::Message& message) override { return Answer(message); }
    void Beep() override { Player::Beep(); }
    void SetBusy(bool busy) override { busy_ += busy ? 1 : -1; }
    void Realise(views::Form& form) override;
    void Run(views::Form& form) override;

    int busy_ = 0;
    std::map<const views::Control*, Mirror> mirrors_;
};

}  // namespace test
