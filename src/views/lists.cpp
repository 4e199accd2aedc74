#include "views/lists.h"

#include <algorithm>

#include "errors/errors.h"
#include "platform/drives.h"
#include "text/strings.h"
#include "views/form.h"
#include "views/keys.h"

namespace views {

void ListBox::AddItem(std::string_view item) {
    const std::string added(text::UntilNul(item));
    auto at = items_.end();
    if (order_ == Order::kSorted) {
        at = std::upper_bound(items_.begin(), items_.end(), added, text::LessIgnoringCase);
    }
    const auto index = static_cast<int>(at - items_.begin());
    items_.insert(at, added);
    if (index <= index_) ++index_;
    Changed(Aspect::kItems);
}

void ListBox::RemoveItem(int index) {
    if (index < 0 || index >= Count()) return;
    items_.erase(items_.begin() + index);
    if (index == index_) {
        index_ = -1;
    } else if (index < index_) {
        --index_;
    }
    Changed(Aspect::kItems);
}

void ListBox::Clear() {
    items_.clear();
    index_ = -1;
    Changed(Aspect::kItems);
}

void ListBox::SetListIndex(int index) {
    index_ = index >= 0 && index < Count() ? index : -1;
    IndexChanged();
    Changed(Aspect::kIndex);
    if (index_ >= 0 && onClick) onClick();
}

std::string ListBox::SelectedText() const {
    return index_ < 0 ? std::string() : items_[static_cast<std::size_t>(index_)];
}

void ListBox::Choose(int index) {
    if (!CanTakeFocus() || index < 0 || index >= Count()) return;
    Owner().MoveFocus(this);
    SetListIndex(index);
}

bool ListBox::HandleKey(int key, int shift) {
    constexpr int kPage = 10;  // entries
    if ((shift & kAlt) != 0) return false;
    int index = index_;
    switch (key) {
        case kKeyUp:
        case kKeyLeft:
            --index;
            break;
        case kKeyDown:
        case kKeyRight:
            ++index;
            break;
        case kKeyPageUp:
            index -= kPage;
            break;
        case kKeyPageDown:
            index += kPage;
            break;
        case kKeyHome:
            index = 0;
            break;
        case kKeyEnd:
            index = Count() - 1;
            break;
        default:
            return false;
    }
    index = std::clamp(index, 0, std::max(Count() - 1, 0));
    if (index != index_) Choose(index);
    return true;
}

bool ListBox::HandleCharacter(char character) {
    for (int step = 1; step <= Count(); ++step) {
        const int index = (index_ + step) % Count();
        const std::string_view item = items_[static_cast<std::size_t>(index)];
        if (!text::EqualIgnoringCase(item.substr(0, 1), {&character, 1})) continue;
        if (index != index_) Choose(index);
        break;
    }
    return true;
}

ComboBox::ComboBox(Form& owner, std::string_view name, Style style)
    : ListBox(owner, name, style == Style::kEditField ? Kind::kComboBox : Kind::kDropDownList,
              Order::kAsAdded),
      TextPart(this) {}

bool ComboBox::HandleCharacter(char character) {
    if (HasEditField()) Insert(character);
    return HasEditField();
}

void ComboBox::RemoveItem(int index) {
    const bool chosen = index == ListIndex();
    ListBox::RemoveItem(index);
    if (chosen && !HasEditField()) {
        ReplaceText({});
        Changed(Aspect::kText);
    }
}

// The text follows the chosen entry without running Change: that belongs to typing.
void ComboBox::IndexChanged() {
    if (ListIndex() >= 0) {
        ReplaceText(SelectedText());
    } else if (!HasEditField()) {
        ReplaceText({});
    }
    Selected(0, 0);
}

DriveList::DriveList(Form& owner, std::string_view name) : Control(owner, name, Kind::kDriveList) {
    Refresh();
    for (const std::string& item : items_) {
        if (item[0] == 'c') drive_ = item;
    }
    if (drive_.empty() && !items_.empty()) drive_ = items_.front();
}

std::string DriveList::Prefix() const {
    return drive_.substr(0, 1) + ":";
}

void DriveList::SetDrive(std::string_view drive) {
    if (TrySetDrive(drive)) return;
    const std::string shown = drive.empty() ? "no drive" : std::string(drive.substr(0, 1)) + ":";
    // There, but not ready, or not there at all; what cannot be found out has its own reason.
    platform::Resolve(shown);
    throw errors::FileError(errors::FileErrorKind::kDeviceUnavailable, shown,
                            "the drive is not ready");
}

bool DriveList::TrySetDrive(std::string_view drive) {
    Refresh();
    const auto found = std::find_if(items_.begin(), items_.end(), [&](const std::string& item) {
        return text::EqualIgnoringCase(item.substr(0, 1), drive.substr(0, 1));
    });
    if (found == items_.end() || !platform::DriveReady(found->front())) return false;
    const bool another = found->substr(0, 1) != drive_.substr(0, 1);
    drive_ = *found;
    Changed(Aspect::kIndex);
    if (another && onChange) onChange();
    return true;
}

int DriveList::Index() const {
    const auto found = std::find(items_.begin(), items_.end(), drive_);
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

void DriveList::Choose(int index) {
    if (!CanTakeFocus() || index < 0 || index >= static_cast<int>(items_.size())) return;
    // Which drives there are is looked for again when the focus comes here.
    const std::string chosen = items_[static_cast<std::size_t>(index)];
    Owner().MoveFocus(this);
    if (chosen == drive_) return;
    drive_ = chosen;
    Changed(Aspect::kIndex);
    if (onChange) onChange();
}

void DriveList::Refresh() {
    std::vector<std::string> items;
    for (const platform::Drive& drive : platform::Drives()) {
        std::string item = std::string(1, drive.letter) + ":";
        if (!drive.label.empty()) item += " [" + drive.label + "]";
        items.push_back(item);
    }
    if (!drive_.empty()) {
        const auto at = std::lower_bound(items.begin(), items.end(), Prefix());
        if (at != items.end() && at->front() == drive_.front()) {
            drive_ = *at;  // its label may be another by now
        } else {
            items.insert(at, drive_);
        }
    }
    if (items == items_) return;
    items_ = std::move(items);
    Changed(Aspect::kItems);
}

}  // namespace views
