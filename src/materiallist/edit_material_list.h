// The material list window: the entries of one material list in a grid with an editor per column,
// and the operator's nesting options.
#pragma once

#include "materiallist/list_editor.h"
#include "materiallist/material_list_table.h"
#include "text/fixed_text.h"
#include "views/basic_controls.h"
#include "views/form.h"
#include "views/grid.h"
#include "views/lists.h"
#include "views/text_box.h"

namespace materiallist {

// Edits the list that MaterialListSource names and that was loaded before. Every edit goes straight
// into the table; the files are written only when the operator closes with Yes to saving.
class FrmEditMaterialList : public views::Form {
  public:
    FrmEditMaterialList();

    views::Grid grdMaterialList{*this, "grdMaterialList", 9000, 4200};
    views::Frame Frame1{*this, "Frame1", "Edit Data"};
    views::ComboBox cboEditDataType{*this, "cboEditDataType", views::ComboBox::Style::kEditField};
    views::ComboBox cboEditDataProcess{*this, "cboEditDataProcess",
                                       views::ComboBox::Style::kEditField};
    views::TextBox txtSpinText{*this, "txtSpinText"};
    views::SpinButton spinButton{*this, "spinButton"};
    views::CommandButton cmdAdd{*this, "cmdAdd", "&Add"};
    views::CommandButton cmdCopy{*this, "cmdCopy", "&Copy"};
    views::CommandButton cmdPaste{*this, "cmdPaste", "&Paste"};
    views::CommandButton cmdDelete{*this, "cmdDelete", "&Delete"};
    views::CommandButton cmdClose{*this, "cmdClose", "&Close"};
    views::CheckBox chkAllowKerfCompensated{*this, "chkAllowKerfCompensated",
                                            "Allow Kerf compensated programs"};
    views::CheckBox chkNestClearanceCheck{*this, "chkNestClearanceCheck",
                                          "Nest clearance checking"};
    views::CheckBox chkTracePlate{*this, "chkTracePlate", "Trace Plate Outline"};
    views::Frame Frame2{*this, "Frame2", "Pre Piercing"};
    views::CheckBox chkPrePierceEnabled{*this, "chkPrePierceEnabled", "Enabled"};
    views::Label Label1{*this, "Label1", "Min Plate Thickness:"};
    views::TextBox txtMinPlateThickness{*this, "txtMinPlateThickness"};

    // False only for a directory that holds components or nests: they refer to its entries.
    bool DeleteAllowed = true;
    // The copy buffer.
    text::FixedText<32> CopiedType;
    text::FixedText<64> CopiedProcess;
    float CopiedThickness = 0;

    ListEditor editor;

  protected:
    void Load() override;

  private:
    void Arrange();
    void BindCommands();
    void ShowOptions();
    void FillMaterialGrid();
    void FillEditorLists();
    void RowSelected(bool selected);
    void AddClick();
    void CopyClick();
    void PasteClick();
    void DeleteClick();
    void CloseClick();
    void Append(const MaterialListEntry& entry);
    bool Save();
};

}  // namespace materiallist
