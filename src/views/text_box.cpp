#include "views/text_box.h"

#include <algorithm>

#include "text/strings.h"
#include "views/keys.h"

namespace views {

void TextPart::SetText(std::string_view value) {
    value = text::UntilNul(value);
    if (value == text_) return;
    text_ = std::string(value);
    selStart_ = selLength_ = 0;
    control_.Changed(Aspect::kText);
    if (onChange) onChange();
}

void TextPart::Select(std::size_t start, std::size_t length) {
    Selected(start, length);
    control_.Changed(Aspect::kSelection);
}

bool TextPart::CutTo(std::size_t length) {
    if (text_.size() <= length) return false;
    SetText(text_.substr(0, length));
    Select(length, 0);
    return true;
}

void TextPart::Insert(char character) {
    const bool back = character == kKeyBackspace;
    if (!back && static_cast<unsigned char>(character) < kKeySpace) return;  // Enter, Tab
    std::string value = text_;
    std::size_t at = selStart_, length = selLength_;
    if (back && length == 0 && at > 0) --at, length = 1;
    value.replace(at, length, back ? std::string() : std::string(1, character));
    Edited(value, back ? at : at + 1);
    control_.Changed(Aspect::kText);
}

void TextPart::Edited(std::string_view value, std::size_t caret) {
    // A text has one line: a line end that was pasted would cut a data file's line in two.
    value = value.substr(0, value.find_first_of("\r\n"));
    const bool differs = value != text_;
    text_ = std::string(text::UntilNul(value));
    Selected(caret, 0);
    if (differs && onChange) onChange();
}

void TextPart::Selected(std::size_t start, std::size_t length) {
    selStart_ = std::min(start, text_.size());
    selLength_ = std::min(length, text_.size() - selStart_);
}

bool TextPart::SelectAllBy(int key, int shift) {
    if (key != 'A' || shift != kCtrl) return false;
    SelectAll();
    return true;
}

bool TextBox::HandleCharacter(char character) {
    Insert(character);
    return true;
}

}  // namespace views
