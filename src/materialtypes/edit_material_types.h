// The window of the material types: descriptions and densities are edited in its grid, types added
// and deleted; the file is written when it closes.
#pragma once

#include "views/basic_controls.h"
#include "views/form.h"
#include "views/grid.h"
#include "views/grid_editor.h"
#include "views/text_box.h"

namespace materialtypes {

class FrmEditMaterialTypes : public views::Form {
  public:
    FrmEditMaterialTypes();

    // Sets the grid up and shows the records of the table. Their codes and descriptions are clean
    // texts afterwards.
    void FillMaterialTypesGrid();

    views::Grid grdMaterialTypes{*this, "grdMaterialTypes", 7000, 3600};
    views::Frame Frame1{*this, "Frame1", "Edit Data"};
    views::TextBox txtEditData{*this, "txtEditData"};
    views::CommandButton cmdAdd{*this, "cmdAdd", "&Add"};
    views::CommandButton cmdDelete{*this, "cmdDelete", "&Delete"};
    views::CommandButton cmdClose{*this, "cmdClose", "&Close"};

  protected:
    void Load() override;

  private:
    void AddClick();
    void DeleteClick();
    void CloseClick();
    bool Save();

    views::GridEditor editor_;
};

}  // namespace materialtypes
