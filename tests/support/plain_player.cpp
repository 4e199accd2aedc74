// Plays scripts by events of the plain controls, without real windows.
#include "tests/support/plain_player.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "views/application.h"
#include "views/basic_controls.h"
#include "views/keys.h"
#include "views/lists.h"

namespace test {

void PlainPlayer::Start(views::Form& form) {
    views::Screen* const before = views::InstallScreen(this);
    views::Guard([&] { views::ShowModal(form); });
    views::InstallScreen(before);
    EXPECT_EQ(busy_, 0) << "the pointer is still busy";
}

void PlainPlayer::Realise(views::Form& form) {
    form.width = 400, form.height = 300;
    for (views::Control* control : form.Controls()) control->SetPeer(&mirrors_[control]);
}

bool PlainPlayer::Told(const views::Control& control, views::Aspect aspect) {
    using views::Aspect;
    // A text shows its selection only with the focus; rows come and go with the shape.
    static const std::map<Aspect, std::set<Aspect>> kAlso = {
        {Aspect::kEnabled, {Aspect::kVisible}},
        {Aspect::kText, {Aspect::kIndex, Aspect::kSelection, Aspect::kFocus}},
        {Aspect::kIndex, {Aspect::kItems}},
        {Aspect::kCells, {Aspect::kShape}}};
    const auto& told = mirrors_[&control].told;
    const auto also = kAlso.find(aspect);
    if (told.contains(aspect) || also == kAlso.end()) return told.contains(aspect);
    return std::any_of(also->second.begin(), also->second.end(),
                       [&](Aspect other) { return told.contains(other); });
}

void PlainPlayer::Forget(const views::Form& form) {
    for (const views::Control* control : form.Controls()) mirrors_[control].told.clear();
}

void PlainPlayer::Run(views::Form& form) {
    EXPECT_EQ(form.left * 1000 + form.top, 300250) << "of 400 x 300 in 1000 x 800";
    views::Guard([&] { form.Activate(); });
    Work(form);
}

void PlainPlayer::Press(views::Form& form, int key, int shift) {
    views::Guard([&] {
        if (form.KeyDown(key, shift)) return;
        if (key == views::kKeySpace) {
            // What the toolkit does by itself.
            if (auto* button = dynamic_cast<views::CommandButton*>(form.Focus()))
                return button->Press();
            if (auto* box = dynamic_cast<views::CheckBox*>(form.Focus())) return box->Toggle();
        }
        if (key == views::kKeyBackspace) form.KeyPress(views::kKeyBackspace);
    });
}

void PlainPlayer::Type(views::Form& form, char character) {
    const int key = std::toupper(static_cast<unsigned char>(character));
    const bool named = views::IsLetterOrDigit(key) || key == views::kKeySpace;
    views::Guard([&] {
        if (!form.KeyDown(named ? key : views::kKeyOther, 0)) form.KeyPress(character);
    });
}

void PlainPlayer::Click(views::Control& control) {
    views::Guard([&] {
        if (auto* button = dynamic_cast<views::CommandButton*>(&control)) return button->Press();
        if (auto* box = dynamic_cast<views::CheckBox*>(&control)) return box->Toggle();
        if (auto* option = dynamic_cast<views::OptionButton*>(&control)) return option->Pick();
        ADD_FAILURE() << control.Name() << " cannot be clicked";
    });
}

void PlainPlayer::Paste(views::Control& control, const std::string& text) {
    views::Guard([&] { dynamic_cast<views::TextPart&>(control).Edited(text, text.size()); });
}

void PlainPlayer::ClickCell(views::Grid& grid, int row, int column, bool twice) {
    views::Guard([&] {
        // The second click of a double click comes after an ordinary one.
        grid.ClickCell(row, column);
        if (twice) grid.DoubleClickCell(row, column);
    });
}

}  // namespace test
