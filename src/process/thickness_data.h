// The window of the thicknesses of the current process: what it needs for each plate thickness is
// edited in a grid and copied back into the process when the window closes.
#pragma once

#include <string_view>

#include "views/basic_controls.h"
#include "views/form.h"
#include "views/grid.h"
#include "views/grid_editor.h"
#include "views/text_box.h"

namespace process {

// Whether the text has nothing but digits and points; true for the empty one.
bool IsDigitsAndPoints(std::string_view text);

class FrmThicknessData : public views::Form {
  public:
    // There must be a current process when the window opens.
    FrmThicknessData();

    // Sets the grid up and shows the rows of the current process.
    void FillThicknessGrid();

    views::Grid grdThicknessData{*this, "grdThicknessData", 8500, 3600};
    views::Frame Frame1{*this, "Frame1", "Edit Data"};
    views::TextBox txtEditData{*this, "txtEditData"};
    views::CommandButton cmdThkAdd{*this, "cmdThkAdd", "&Add"};
    views::CommandButton cmdThkDel{*this, "cmdThkDel", "&Delete"};
    views::CommandButton cmdThkClose{*this, "cmdThkClose", "&Close"};

  protected:
    void Load() override;

  private:
    void AddClick();
    void DeleteClick();
    void CloseClick();
    void CopyBack();

    bool changed_ = false;
    views::GridEditor editor_;
};

}  // namespace process
