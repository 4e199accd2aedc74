// The dialog that prints listings of data directories.
#pragma once

#include <vector>

#include "directories/data_area.h"
#include "views/basic_controls.h"
#include "views/form.h"
#include "views/lists.h"
#include "views/printer.h"

namespace directories {

class FrmPrint : public views::Form {
  public:
    explicit FrmPrint(Listed listed);

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
    std::vector<Category> TickedCategories() const;
    void OkClick();

    Listed listed_;
};

}  // namespace directories
