// The dialog that prints listings of the data directories that the main window shows.
#pragma once

#include "directories/directory_listing.h"
#include "views/basic_controls.h"
#include "views/form.h"
#include "views/lists.h"
#include "views/printer.h"

namespace app {
class SysMan;
}

namespace directories {

class FrmPrint : public views::Form {
  public:
    explicit FrmPrint(app::SysMan& main);

    views::OptionGroup rangeGroup;
    views::OptionButton optAllDir{*this, "optAllDir", "All Directories", rangeGroup};
    views::OptionButton optSelDir{*this, "optSelDir", "Selected Directory", rangeGroup};
    views::CheckBox chkComp{*this, "chkComp", "Components"};
    views::CheckBox chkGroups{*this, "chkGroups", "Groups"};
    views::CheckBox chkNest{*this, "chkNest", "Nests"};
    views::CheckBox chkTape{*this, "chkTape", "Tapes"};
    views::CommandButton cmdSetup{*this, "cmdSetup", "Setup..."};
    views::CommandButton cmdOK{*this, "cmdOK", "Print"};
    views::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};
    views::ListBox lstSortBox{*this, "lstSortBox", views::ListBox::Order::kSorted};  // not shown
    views::PrinterSetupDialog CMDialogPSetup;

  protected:
    void Load() override;

  private:
    Listing ChosenListing() const;
    void OkClick();

    app::SysMan& main_;
};

}  // namespace directories
