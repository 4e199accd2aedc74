// The thickness prompt of a new production directory, whose list is a copy of the system default
// list and so carries no thicknesses yet.
#pragma once

#include "views/basic_controls.h"
#include "views/form.h"
#include "views/text_box.h"

namespace materiallist {

// Proposes the thickness that the name of MaterialListDirPath tells and sets what is entered into
// every entry of the list. Closed in another way than by Ok it changes nothing.
class FrmEnterThickness : public views::Form {
  public:
    FrmEnterThickness();

    views::Label Label1{*this, "Label1", "Enter Thickness ?"};
    views::TextBox txtInitThickness{*this, "txtInitThickness"};
    views::CommandButton cmdOk{*this, "cmdOk", "&Ok"};

  protected:
    void Load() override;

  private:
    void OkClick();
};

}  // namespace materiallist
