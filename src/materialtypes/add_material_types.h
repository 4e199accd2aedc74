// The dialog that asks for the code of a new material type.
#pragma once

#include "views/basic_controls.h"
#include "views/form.h"
#include "views/grid_editor.h"
#include "views/text_box.h"

namespace materialtypes {

class FrmAddMaterialTypes : public views::Form {
  public:
    // Adds the type behind the others in the grid of this editor and counts it in the table, which
    // must have room for it.
    explicit FrmAddMaterialTypes(views::GridEditor& editor);

    views::Label Label1{*this, "Label1", "   Enter  New Material Code  ?"};
    views::TextBox txtAddMaterial{*this, "txtAddMaterial"};
    views::CommandButton cmdOK{*this, "cmdOK", "&OK"};
    views::CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};

  private:
    void EnterPressed();
    void OkClick();

    views::GridEditor& editor_;
};

}  // namespace materialtypes
