// Editing the entries of the material list: in the grid and, below it, in an editor per column.
#pragma once

#include <array>
#include <functional>
#include <string_view>

#include "materiallist/material_list_table.h"
#include "views/basic_controls.h"
#include "views/grid.h"
#include "views/lists.h"
#include "views/text_box.h"

namespace materiallist {

// Grid row r shows entry r; an empty list shows one blank row. A text that is typed, in the grid or
// in an editor, is in the cell and in the entry at once; when the cell is left it is committed:
// completed to a code or a process of the tables, a thickness limited to the range of its process.
// The thickness (mm) is neither shown nor edited in the system default list, which has none.
class ListEditor {
  public:
    // Binds the handlers of all five. `rowSelected` is told true when a whole row was selected and
    // false when a single cell was.
    ListEditor(views::Grid& grid, views::ComboBox& type, views::ComboBox& process,
               views::TextBox& thickness, views::SpinButton& spin,
               std::function<void(bool)> rowSelected);

    // After the grid was filled: selects the first cell.
    void Start();

    // Puts an entry at the end and selects it. An entry too many throws errors::FatalError.
    void Append(const MaterialListEntry& entry);
    // The entry of the current row; there must be one.
    void RemoveCurrent();

    // Commits the cell in which an edit is pending, if any; the current cell stays.
    void CommitPending();

    // The cell whose editor was entered or into which was typed, and the one last selected.
    int EditRow = 0, EditCol = 0;
    int SelRow = 0, SelCol = 0;
    enum : int { kNothingPending = 0, kEditPending = 1, kCellSelected = 2 };
    int EditState = kNothingPending;

  private:
    static constexpr int kTypeColumn = 1, kProcessColumn = 2, kThicknessColumn = 3;

    void BindGrid();
    void BindEditor(views::Control& control, int column);
    void BindCombo(views::ComboBox& combo, int column);

    // Where the operator is.
    void MakeCurrent(int row, int column);
    void CellChanged();
    void ShowEditor();
    void SelectCell();
    void SelectRow();
    void MoveBy(views::KeyEvent& event, int rowStep);
    bool OnEntry() const;
    bool HasEditor(int column) const;

    // What is typed.
    void BeginEdit();
    bool IsPending() const;  // in the current cell
    void GridKeyDown(views::KeyEvent& event);
    void GridKeyPress(char character);
    void EditorKeyDown(views::KeyEvent& event, bool leaves);
    void EditorChanged(int column);
    void SpinThickness(int step);

    // What becomes of it.
    void StoreCell(int column, std::string_view value);
    void CommitCell();
    void ValidateThickness();

    views::TextPart& Editor(int column) {
        return *editors_.at(static_cast<std::size_t>(column) - 1);
    }

    views::Grid& grid_;
    views::ComboBox& type_;
    views::ComboBox& process_;
    views::TextBox& thickness_;
    views::SpinButton& spin_;
    std::array<views::TextPart*, 3> editors_;  // by column
    std::function<void(bool)> rowSelected_;
};

}  // namespace materiallist
