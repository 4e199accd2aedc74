#include "views/grid_cells.h"

#include <algorithm>

#include "views/view_procedures.h"

namespace views {

void InsertDataRow(Grid& grid, const std::vector<std::string>& texts, int row, int count) {
    grid.AddRow(texts, row);
    if (count == 0) grid.RemoveRow(2);
}

void RemoveDataRow(Grid& grid, int row, int count) {
    if (count == 1) grid.AddRow({});
    grid.RemoveRow(row);
}

void SelectDataRow(Grid& grid) {
    grid.SelectBlock({grid.Row(), 1, grid.Row(), grid.Columns() - 1});
    grid.SetHighlight(true);
}

void KeepRowInView(Grid& grid, int distance) {
    constexpr int kRowsInView = 6;
    if (grid.Rows() <= kRowsInView) return;
    const int row = grid.Row();
    if (grid.TopRow() > row || grid.TopRow() <= row - distance) grid.SetTopRow(row);
}

Cell KeyTarget(const Grid& grid, KeyEvent& event, int lastRow, int rowStep) {
    Cell cell = CurrentCell(grid);
    const int lastColumn = grid.Columns() - 1;
    NavigateCell(event.key, event.shift, event.handled, cell.row, cell.column, lastRow, lastColumn,
                 rowStep);
    cell.column = std::clamp(cell.column, 1, lastColumn);
    return cell;
}

std::string Typed(std::string text, char character, std::size_t longest) {
    if (character != kKeyBackspace) {
        text += character;
    } else if (!text.empty()) {
        text.pop_back();
    }
    return text.substr(0, longest);
}

}  // namespace views
