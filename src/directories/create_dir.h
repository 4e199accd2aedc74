// The dialog that makes a new data directory of the kind and on the drive that the main window
// shows, and selects it there.
#pragma once

#include "views/basic_controls.h"
#include "views/form.h"
#include "views/text_box.h"

namespace app {
class SysMan;
}

namespace directories {

class CreateDir : public views::Form {
  public:
    explicit CreateDir(app::SysMan& main);

    views::Label Label1{*this, "Label1", "Enter new directory name:"};
    views::TextBox txtDirName{*this, "txtDirName"};
    views::CommandButton cmdOK{*this, "cmdOK", "OK"};
    views::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

  protected:
    void Load() override;

  private:
    void OkClick();
    void CancelClick();

    app::SysMan& main_;
};

}  // namespace directories
