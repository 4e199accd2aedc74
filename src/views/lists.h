// List boxes, combo boxes and drive lists.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "views/control.h"
#include "views/text_box.h"

namespace views {

class ListBox : public Control {
  public:
    enum class Order { kAsAdded, kSorted };

    ListBox(Form& owner, std::string_view name, Order order = Order::kAsAdded)
        : ListBox(owner, name, Kind::kListBox, order) {}

    int Count() const { return static_cast<int>(items_.size()); }
    const std::vector<std::string>& Items() const { return items_; }
    // An entry ends at its first NUL.
    void AddItem(std::string_view item);
    virtual void RemoveItem(int index);
    virtual void Clear();

    // The chosen entry, -1 for none. Setting it to an entry runs Click, to -1 nothing.
    int ListIndex() const { return index_; }
    void SetListIndex(int index);
    // The text of the chosen entry, empty for none.
    std::string SelectedText() const;

    // The operator chooses an entry.
    void Choose(int index);
    // The arrow keys, Page Up and Down, Home and End choose; nothing is chosen by coming here.
    bool HandleKey(int key, int shift) override;
    // Chooses the next entry that begins with the character.
    bool HandleCharacter(char character) override;

    std::function<void()> onClick;

  protected:
    ListBox(Form& owner, std::string_view name, Kind kind, Order order)
        : Control(owner, name, kind), order_(order) {}
    virtual void IndexChanged() {}

  private:
    std::vector<std::string> items_;
    int index_ = -1;
    Order order_;
};

// A list with a text above it. Without an edit field the text is always an entry of the list; with
// one it can be anything.
class ComboBox : public ListBox, public TextPart {
  public:
    enum class Style { kListOnly, kEditField };

    ComboBox(Form& owner, std::string_view name, Style style);

    bool HasEditField() const { return GetKind() == Kind::kComboBox; }
    // Its list drops down and has the other keys for itself.
    bool HandleKey(int key, int shift) override {
        return HasEditField() && SelectAllBy(key, shift);
    }
    bool HandleCharacter(char character) override;
    void RemoveItem(int index) override;

  protected:
    void IndexChanged() override;
};

// The drives that are there and ready, one of them chosen.
class DriveList : public Control {
  public:
    DriveList(Form& owner, std::string_view name);

    // The chosen drive: letter in lower case, a colon and, behind a blank, the volume label where
    // there is one. Empty only where there is no drive at all.
    const std::string& Drive() const { return drive_; }
    // "c:", from the first character of Drive.
    std::string Prefix() const;

    // Chooses the drive with the first letter of the text and runs Change if it was another.
    // Throws errors::FileError when it is not there (kPathNotFound) or does not answer
    // (kDeviceUnavailable); the choice then stays.
    void SetDrive(std::string_view drive);
    // The same, but false when it is not there or does not answer. What Change throws comes
    // through.
    bool TrySetDrive(std::string_view drive);

    const std::vector<std::string>& Items() const { return items_; }
    int Index() const;
    // The operator chooses an entry.
    void Choose(int index);
    // Looks which drives there are now; the chosen one stays in the list.
    void Refresh();

    std::function<void()> onChange;

  private:
    std::vector<std::string> items_;
    std::string drive_;
};

}  // namespace views
