// A window: its controls, where the focus is, and what keys do in it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "views/control.h"
#include "views/layout.h"

namespace views {

class CommandButton;

// The real window behind a plain one.
class FormPeer {
  public:
    virtual ~FormPeer() = default;
    virtual void ShowCaption() = 0;
    virtual void Close() = 0;
};

class Form {
  public:
    Form(std::string_view name, std::string_view caption);
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const { return name_; }
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);

    // Called by ShowModal: runs Load. A window that closes itself there is not shown. Throws
    // std::logic_error where a control is in no layout: nobody could see what it does.
    void Open();
    bool IsOpen() const { return open_; }
    // Closes the window: runs Unload once, then the caller of ShowModal goes on.
    void Close();
    // Closes the window without its Unload: the application has ended.
    void Dismiss();

    // The operator closes the window by its frame, Alt+F4 or Escape: its Close or Cancel command
    // where it has one.
    void RequestClose();

    // The window has appeared: gives the focus to `firstFocus` or the first control that takes it.
    void Activate();

    Control* Focus() const { return focus_; }
    // Runs LostFocus of the old control, then GotFocus of the new; nothing if it is there already.
    void MoveFocus(Control* control);
    // To the next control that can take it, for the one that no longer can.
    void MoveFocusOn();
    // As the Tab key does; backwards with Shift.
    void MoveFocusBy(int step);

    // To the first control of the next part of the window, as F6 does; backwards with Shift. The
    // parts are the first two of the layout, in the grid windows the grid and its editor, and what
    // stands below them.
    void MoveFocusByPart(int step);

    // A key was pressed (see keys.h): KeyDown of the control with the focus, then the control's own
    // answer, then the window's (Tab, F6, Enter, Escape, mnemonics). True when nothing else is to
    // come of it.
    bool KeyDown(int key, int shift);
    // A character was typed: KeyPress of the control with the focus, then the control takes it
    // where no handler refused it. True when nothing else is to come of it.
    bool KeyPress(char character);
    // Alt and a letter or digit.
    bool Mnemonic(char letter);

    // Every control that can be seen, in the order of the layout.
    std::vector<Control*> Controls() const;
    const Layout& GetLayout() const { return layout_; }

    void Register(Control& control) { registered_.push_back(&control); }
    void SetPeer(FormPeer* peer) { peer_ = peer; }

    // In the screen's own units; the size is that of the real window.
    int left = 0, top = 0, width = 0, height = 0;
    bool resizable = false;

  protected:
    virtual void Load() {}
    virtual void Unload() {}

    void SetLayout(Layout layout) { layout_ = std::move(layout); }

    CommandButton* defaultButton = nullptr;  // what Enter presses where no control wants it
    CommandButton* closeButton = nullptr;    // Close, or Cancel of a dialog
    Control* firstFocus = nullptr;

  private:
    std::string name_;
    std::string caption_;
    std::vector<Control*> registered_;
    Layout layout_;
    FormPeer* peer_ = nullptr;
    Control* focus_ = nullptr;
    bool open_ = false;
};

}  // namespace views
