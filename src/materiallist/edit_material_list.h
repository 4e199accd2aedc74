// The material list window: the entries of one material list in a grid with an editor per column,
// and the operator's nesting options.
#pragma once

#include <string>
#include <string_view>
#include <vector>

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
//
// Grid row r shows entry r; an empty list shows one blank row. A text that is typed, in the grid or
// in an editor, is in the cell and in the entry at once; when the cell is left it is committed:
// completed to a code or a process of the tables, a thickness limited to the range of its process.
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
    // The cell whose editor was entered or into which was typed, and the one last selected.
    int EditRow = 0, EditCol = 0;
    int SelRow = 0, SelCol = 0;
    enum : int { kNothingPending = 0, kEditPending = 1, kCellSelected = 2 };
    int EditState = kNothingPending;
    // The copy buffer.
    text::FixedText<32> CopiedType;
    text::FixedText<64> CopiedProcess;
    float CopiedThickness = 0;

  protected:
    void Load() override;

  private:
    static constexpr int kTypeColumn = 1, kProcessColumn = 2, kThicknessColumn = 3;

    // edit_material_list.cpp
    void Arrange();
    void BindCommands();
    void ShowOptions();
    void FillEditorLists();
    void AddClick();
    void CopyClick();
    void PasteClick();
    void DeleteClick();
    void CloseClick();
    bool Save();
    void Append(const MaterialListEntry& entry);
    void RemoveEntry(int row);

    // edit_material_list_cells.cpp
    void FillMaterialGrid();
    std::vector<std::string> RowTexts(int row) const;
    void MakeCurrent(int row, int column);
    void CellChanged();
    void KeepRowInView();
    void ShowEditor();
    void SelectCell();
    void SelectRow();
    void DropRow();
    void CommitCell();
    void CommitPending();
    void ValidateThickness();
    void ClampCell(int& row, int& column) const;
    void StoreCell(std::string_view value);
    bool OnEntry() const;

    // edit_material_list_editors.cpp
    void BindEditors();
    void BindCombo(views::ComboBox& combo);
    void BeginEdit();
    bool IsPending(int row, int column) const;
    void EnterEditor(views::TextPart& editor);
    void EditorChanged(const views::TextPart& editor);
    void LeaveEditor(views::KeyEvent& event);
    void ThicknessKeyDown(views::KeyEvent& event);
    void ThicknessKeyPress();
    void SpinThickness(int step);
    void GridKeyDown(views::KeyEvent& event);
    void GridKeyPress(char character);
};

}  // namespace materiallist
