// What all windows do that edit the cells of a grid. Such a grid has one heading row and one fixed
// column; data begins at row 1, and without any there is one blank row.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "views/grid.h"
#include "views/keys.h"

namespace views {

struct Cell {
    int row = 0, column = 0;  // 0, 0 for none
    bool operator==(const Cell&) const = default;
};

inline Cell CurrentCell(const Grid& grid) {
    return {grid.Row(), grid.Column()};
}

// Both are given the number of data rows before the change. `row` is 1 to `count` + 1, or `count`.
void InsertDataRow(Grid& grid, const std::vector<std::string>& texts, int row, int count);
void RemoveDataRow(Grid& grid, int row, int count);

// Selects the current row without its fixed cell.
void SelectDataRow(Grid& grid);

// The current row comes to the top where it is above it, or `distance` rows or more below it,
// however many the grid has room for. A grid of no more than 6 rows is never scrolled.
void KeepRowInView(Grid& grid, int distance);

// The cell that a key leads to from the current one, by the rules of NavigateCell. Its column is
// one of the grid's; keeping its row on the data is the window's business.
Cell KeyTarget(const Grid& grid, KeyEvent& event, int lastRow, int rowStep);

// The keys that lead from the editor of a cell to another cell.
constexpr bool LeavesEditor(int key) {
    return key == kKeyDown || key == kKeyEnter || key == kKeyTab || key == kKeyUp;
}

// The text with a character typed at its end, or Backspace, kept to a length.
std::string Typed(std::string text, char character, std::size_t longest);

}  // namespace views
