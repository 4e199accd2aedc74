// The dialog that asks for a new plate thickness of the current process.
#pragma once

#include "views/basic_controls.h"
#include "views/form.h"
#include "views/grid_editor.h"
#include "views/text_box.h"

namespace process {

class FrmAddThickness : public views::Form {
  public:
    // Puts the thickness into the grid of this editor, in front of the first larger one, and
    // counts it in the current process, which must have room for it.
    explicit FrmAddThickness(views::GridEditor& editor);

    views::Label Label1{*this, "Label1", "Enter New Thickness ?"};
    views::TextBox txtNewThickness{*this, "txtNewThickness"};
    views::CommandButton cmdAddNewThicknessOK{*this, "cmdAddNewThicknessOK", "&Ok"};
    views::CommandButton cmdANTCancel{*this, "cmdANTCancel", "&Cancel"};

  private:
    void OkClick();
    void Refuse(std::string_view reason);

    views::GridEditor& editor_;
};

}  // namespace process
