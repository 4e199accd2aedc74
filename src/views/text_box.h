// Text boxes, and the part of a combo box that is one.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "views/control.h"

namespace views {

// A text that can be edited, with its caret and selection.
class TextPart {
  public:
    explicit TextPart(Control* control) : control_(*control) {}

    const std::string& Text() const { return text_; }
    // From code: a different text runs Change and puts the caret in front; the same one nothing.
    // It ends at its first NUL.
    void SetText(std::string_view value);

    // Caret or selection, counted in characters from 0 and kept inside the text.
    std::size_t SelStart() const { return selStart_; }
    std::size_t SelLength() const { return selLength_; }
    void Select(std::size_t start, std::size_t length);
    void SelectAll() { Select(0, text_.size()); }

    // Cuts a text that is longer, puts the caret behind what is left and gives true.
    bool CutTo(std::size_t length);

    // The operator types a character, or Backspace: it replaces the selection, at the caret where a
    // handler may just have put it. Runs Change where the text differs.
    void Insert(char character);
    // The operator has changed the text in another way (pasted, cut, deleted): runs Change where it
    // differs. Of a pasted text only the first line counts.
    void Edited(std::string_view value, std::size_t caret);
    // The operator has moved the caret or the selection.
    void Selected(std::size_t start, std::size_t length);

    std::function<void()> onChange;

  protected:
    // Ctrl+A, which not every platform has in its text boxes.
    bool SelectAllBy(int key, int shift);
    void ReplaceText(std::string_view text) { text_ = text; }

  private:
    Control& control_;
    std::string text_;
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
};

class TextBox : public Control, public TextPart {
  public:
    TextBox(Form& owner, std::string_view name)
        : Control(owner, name, Kind::kTextBox), TextPart(this) {}
    bool HandleKey(int key, int shift) override { return SelectAllBy(key, shift); }
    bool HandleCharacter(char character) override;
};

}  // namespace views
