// The dialog in which the operator names a new process and chooses whether it starts from the
// built-in defaults or as a copy of another process.
#pragma once

#include "views/basic_controls.h"
#include "views/form.h"
#include "views/lists.h"
#include "views/text_box.h"

namespace process {

class FrmProcessDefaults;

class FrmAddProcess : public views::Form {
  public:
    // The owner, whose list and buttons follow what is added, checks the capacity of the table.
    explicit FrmAddProcess(FrmProcessDefaults& owner);

    views::Label Label1{*this, "Label1", "Process Name : "};
    views::TextBox txtNewProcessName{*this, "txtNewProcessName"};
    views::Label Label2{*this, "Label2", "Copy From      :  "};
    views::ComboBox cboCopy{*this, "cboCopy", views::ComboBox::Style::kListOnly};
    views::CommandButton cmdOk{*this, "cmdOk", "&Ok"};
    views::CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};

  protected:
    void Load() override;
    void Unload() override;

  private:
    void OkClick();
    void Refuse(const std::string& reason);

    FrmProcessDefaults& owner_;
    bool ProcessAdded = false;
};

}  // namespace process
