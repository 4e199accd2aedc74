// The dialog that makes a new data directory.
#pragma once

#include <functional>
#include <string>

#include "directories/data_area.h"
#include "views/basic_controls.h"
#include "views/form.h"
#include "views/text_box.h"

namespace directories {

class CreateDir : public views::Form {
  public:
    // Makes it in the area and then runs `made` with its listed name.
    CreateDir(const DataArea& area, std::function<void(const std::string& name)> made);

    views::Label Label1{*this, "Label1", "Enter new directory name:"};
    views::TextBox txtDirName{*this, "txtDirName"};
    views::CommandButton cmdOK{*this, "cmdOK", "OK"};
    views::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

  protected:
    void Load() override;

  private:
    void OkClick();
    void CancelClick();

    DataArea area_;
    std::function<void(const std::string&)> made_;
};

}  // namespace directories
