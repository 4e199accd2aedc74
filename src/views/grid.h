// A grid of texts with fixed heading rows and columns, one current cell and a block of selected
// cells that is marked or not. Rows and columns count from 0, the fixed ones included.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "views/control.h"

namespace views {

class Grid : public Control {
  public:
    // Lengths in the grid are in twips, 1/20 of a printer's point: 15 to a pixel of a 96 dpi
    // screen.
    static constexpr int kDefaultRowHeight = 300;
    static constexpr int kDefaultColumnWidth = 1000;

    struct Block {
        int firstRow = 0, firstColumn = 0, lastRow = 0, lastColumn = 0;
        bool operator==(const Block&) const = default;
    };

    // Width and height in twips: those of the grid as its window first opens.
    Grid(Form& owner, std::string_view name, int width, int height);

    int Width() const { return width_; }
    int Height() const { return height_; }

    // Gives the grid a new shape: all texts empty, default sizes, the first cell that is not fixed
    // current. Runs no handler.
    void SetShape(int rows, int columns, int fixedRows, int fixedColumns);
    int Rows() const { return static_cast<int>(cells_.size()); }
    int Columns() const { return columns_; }
    int FixedRows() const { return fixedRows_; }
    int FixedColumns() const { return fixedColumns_; }

    int RowHeight(int row) const { return rowHeights_[Checked(row, Rows())]; }
    int ColumnWidth(int column) const { return columnWidths_[Checked(column, columns_)]; }
    void SetRowHeight(int row, int twips);
    void SetColumnWidth(int column, int twips);
    // Numbers stand at the right of their column, where they can be compared.
    void SetNumberColumn(int column);
    bool IsNumberColumn(int column) const { return numberColumns_[Checked(column, columns_)]; }

    // An index outside the grid throws std::out_of_range. A text ends at its first NUL.
    const std::string& Text(int row, int column) const;
    void SetText(int row, int column, std::string_view value);

    // Puts a row with these texts in front of row `at`, or behind the last one. The current cell
    // keeps its numbers; removing the last row while it is current makes the row before current.
    void AddRow(const std::vector<std::string>& texts, int at = -1);
    void RemoveRow(int row);

    int Row() const { return row_; }
    int Column() const { return column_; }
    const std::string& CurrentText() const { return Text(row_, column_); }
    void SetCurrentText(std::string_view text) { SetText(row_, column_, text); }

    enum class Handlers { kRun, kNone };
    // Makes a cell current, kept inside the grid, selects just that cell and runs the
    // current-cell-change handler if it was another.
    void SetCell(int row, int column, Handlers handlers = Handlers::kRun);

    const Block& Selection() const { return selection_; }
    void SelectBlock(const Block& block);
    // Whether the selection is marked.
    bool Highlight() const { return highlight_; }
    void SetHighlight(bool highlight);

    // The first visible row behind the fixed ones, and how many fit; the mirror keeps both.
    int TopRow() const { return topRow_; }
    void SetTopRow(int row);
    void Scrolled(int topRow, int visibleRows);

    // The operator: a click on a cell, on a cell of the fixed columns, and the second of two quick
    // clicks. A click on the heading does nothing.
    void ClickCell(int row, int column);
    void DoubleClickCell(int row, int column);
    // Its own movement: arrow keys, Page Up and Down, Home and End. Ctrl+Space selects the row as a
    // double click does, or a click on its fixed cell where a double click does nothing.
    bool HandleKey(int key, int shift) override;

    std::function<void()> onClick;        // a cell was clicked, it is current now
    std::function<void()> onRowClick;     // a cell of the fixed columns; its row is current
    std::function<void()> onDoubleClick;  // the cell is current
    std::function<void()> onCurrentCellChange;
    std::function<void()> onMouseDown, onMouseUp;

  private:
    static std::size_t Checked(int index, int count);
    bool PressAt(int row, int column);

    int width_, height_;
    int columns_ = 0, fixedRows_ = 0, fixedColumns_ = 0;
    std::vector<std::vector<std::string>> cells_;
    std::vector<int> rowHeights_, columnWidths_;
    std::vector<bool> numberColumns_;
    int row_ = 0, column_ = 0;
    Block selection_;
    bool highlight_ = true;
    int topRow_ = 0, visibleRows_ = 1;
};

}  // namespace views
