// What all controls of the windows have in common.
//
// A control is its state and its event handlers. Which change runs which handler is decided here
// and in the kinds of control, never by the toolkit: a mirror (see Peer) shows the state and
// reports what the operator did.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace views {

class Form;

// What of a control has changed.
enum class Aspect {
    kEnabled,
    kVisible,
    kFocus,
    kText,       // text of a text box, caption of a label, button or frame
    kSelection,  // caret and selected part of a text
    kValue,      // check box, option button
    kItems,      // entries of a list
    kIndex,      // chosen entry of a list
    kCells,      // texts of a grid
    kShape,      // rows, columns and their sizes of a grid
    kCurrentCell,
    kHighlight,  // selected cells of a grid and whether they are marked
    kTopRow,
};

// The real control behind a plain one.
class Peer {
  public:
    virtual ~Peer() = default;
    virtual void Show(Aspect changed) = 0;
};

// A key that was pressed, with the state of Shift, Ctrl and Alt (see keys.h).
struct KeyEvent {
    int key;
    int shift;
    bool handled = false;  // set by a handler that wants nothing else to come of the key
};

// A character about to be typed.
struct CharEvent {
    char character;
    bool handled = false;
};

class Control {
  public:
    // What the mirror has a real control for.
    enum class Kind {
        kLabel,
        kFrame,
        kButton,
        kCheckBox,
        kOption,
        kTextBox,
        kListBox,
        kDropDownList,
        kComboBox,
        kDriveList,
        kSpinButton,
        kGrid,
    };

    Control(Form& owner, std::string_view name, Kind kind);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Kind GetKind() const { return kind_; }
    const std::string& Name() const { return name_; }
    Form& Owner() const { return owner_; }

    bool Enabled() const { return enabled_; }
    bool Visible() const { return visible_; }
    // Disabling or hiding the control with the focus moves the focus on, its handlers included.
    void SetEnabled(bool enabled);
    void SetVisible(bool visible);

    bool HasFocus() const;
    // Moves the focus here, with the handlers of both controls. Nothing where it cannot go.
    void SetFocus();
    virtual bool TakesFocus() const { return true; }
    bool CanTakeFocus() const { return TakesFocus() && enabled_ && visible_; }
    // Whether Tab stops here.
    virtual bool IsTabStop() const { return CanTakeFocus(); }

    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;
    std::function<void(KeyEvent&)> onKeyDown;
    std::function<void(CharEvent&)> onKeyPress;

    // The control's own answer to a key that no handler took; true when it had one.
    virtual bool HandleKey(int key, int shift);
    // The same for a character.
    virtual bool HandleCharacter(char) { return false; }
    // What the mnemonic of its caption does; false where it has none.
    virtual bool HandleMnemonic(char) { return false; }

    void SetPeer(Peer* peer) { peer_ = peer; }
    void Changed(Aspect aspect) {
        if (peer_ != nullptr) peer_->Show(aspect);
    }

    // Said of a control that no layout places because it never shows: it only holds a state. A
    // window with another one outside its layout does not open.
    bool neverShown = false;

    // The name by which a screen reader tells it, where neither its caption nor the label before it
    // does.
    std::string spokenName;

    // Size hints for the layout, in characters and lines; 0 for the natural size.
    int widthHint = 0;
    int heightHint = 0;

  private:
    Form& owner_;
    std::string name_;
    Kind kind_;
    Peer* peer_ = nullptr;
    bool enabled_ = true;
    bool visible_ = true;
};

// A control with a caption, in which "&" marks the mnemonic.
class CaptionedControl : public Control {
  public:
    CaptionedControl(Form& owner, std::string_view name, Kind kind, std::string_view caption);

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    bool HandleMnemonic(char letter) override;

  protected:
    virtual void OnMnemonic() = 0;

  private:
    std::string caption_;
};

}  // namespace views
