#include "views/grid.h"

#include <algorithm>
#include <stdexcept>

#include "text/strings.h"
#include "views/form.h"
#include "views/keys.h"

namespace views {

Grid::Grid(Form& owner, std::string_view name, int width, int height)
    : Control(owner, name, Kind::kGrid), width_(width), height_(height) {
    SetShape(2, 2, 1, 1);
}

std::size_t Grid::Checked(int index, int count) {
    if (index < 0 || index >= count) throw std::out_of_range("Grid: no such row or column");
    return static_cast<std::size_t>(index);
}

void Grid::SetShape(int rows, int columns, int fixedRows, int fixedColumns) {
    columns_ = columns;
    fixedRows_ = fixedRows;
    fixedColumns_ = fixedColumns;
    cells_.assign(static_cast<std::size_t>(rows),
                  std::vector<std::string>(static_cast<std::size_t>(columns)));
    rowHeights_.assign(static_cast<std::size_t>(rows), kDefaultRowHeight);
    columnWidths_.assign(static_cast<std::size_t>(columns), kDefaultColumnWidth);
    numberColumns_.assign(static_cast<std::size_t>(columns), false);
    topRow_ = fixedRows;
    Changed(Aspect::kShape);
    SetCell(fixedRows, fixedColumns, Handlers::kNone);
}

void Grid::SetRowHeight(int row, int twips) {
    rowHeights_[Checked(row, Rows())] = twips;
    Changed(Aspect::kShape);
}

void Grid::SetColumnWidth(int column, int twips) {
    columnWidths_[Checked(column, columns_)] = twips;
    Changed(Aspect::kShape);
}

void Grid::SetNumberColumn(int column) {
    numberColumns_[Checked(column, columns_)] = true;
    Changed(Aspect::kShape);
}

const std::string& Grid::Text(int row, int column) const {
    return cells_[Checked(row, Rows())][Checked(column, columns_)];
}

void Grid::SetText(int row, int column, std::string_view value) {
    cells_[Checked(row, Rows())][Checked(column, columns_)] = text::UntilNul(value);
    Changed(Aspect::kCells);
}

void Grid::AddRow(const std::vector<std::string>& texts, int at) {
    const auto place = at < 0 ? cells_.size() : Checked(at, Rows() + 1);
    std::vector<std::string> row(static_cast<std::size_t>(columns_));
    for (std::size_t i = 0; i < std::min(row.size(), texts.size()); ++i) {
        row[i] = text::UntilNul(texts[i]);
    }
    cells_.insert(cells_.begin() + static_cast<std::ptrdiff_t>(place), std::move(row));
    rowHeights_.insert(rowHeights_.begin() + static_cast<std::ptrdiff_t>(place), kDefaultRowHeight);
    Changed(Aspect::kShape);
}

void Grid::RemoveRow(int row) {
    const auto place = static_cast<std::ptrdiff_t>(Checked(row, Rows()));
    cells_.erase(cells_.begin() + place);
    rowHeights_.erase(rowHeights_.begin() + place);
    Changed(Aspect::kShape);
    if (row_ >= Rows()) SetCell(row_, column_, Handlers::kNone);
}

void Grid::SetCell(int row, int column, Handlers handlers) {
    row = std::clamp(row, 0, std::max(Rows() - 1, 0));
    column = std::clamp(column, 0, std::max(columns_ - 1, 0));
    const bool another = row != row_ || column != column_;
    row_ = row;
    column_ = column;
    SelectBlock({row, column, row, column});
    Changed(Aspect::kCurrentCell);
    if (another && handlers == Handlers::kRun && onCurrentCellChange) onCurrentCellChange();
}

void Grid::SelectBlock(const Block& block) {
    selection_ = block;
    Changed(Aspect::kHighlight);
}

void Grid::SetHighlight(bool highlight) {
    highlight_ = highlight;
    Changed(Aspect::kHighlight);
}

void Grid::SetTopRow(int row) {
    topRow_ = static_cast<int>(Checked(row, Rows()));
    Changed(Aspect::kTopRow);
}

void Grid::Scrolled(int topRow, int visibleRows) {
    topRow_ = topRow;
    visibleRows_ = std::max(visibleRows, 1);
}

bool Grid::PressAt(int row, int column) {
    if (!CanTakeFocus() || row < 0 || row >= Rows() || column < 0 || column >= columns_) {
        return false;
    }
    Owner().MoveFocus(this);
    if (onMouseDown) onMouseDown();
    if (row >= fixedRows_) SetCell(row, std::max(column, fixedColumns_));
    if (onMouseUp) onMouseUp();
    return row >= fixedRows_;
}

void Grid::ClickCell(int row, int column) {
    if (!PressAt(row, column)) return;
    const auto& handler = column < fixedColumns_ ? onRowClick : onClick;
    if (handler) handler();
}

void Grid::DoubleClickCell(int row, int column) {
    if (PressAt(row, column) && onDoubleClick) onDoubleClick();
}

bool Grid::HandleKey(int key, int shift) {
    if (key == kKeySpace && shift == kCtrl) {
        const auto& select = onDoubleClick ? onDoubleClick : onRowClick;
        if (select && row_ >= fixedRows_) select();
        return true;
    }
    int row = row_;
    int column = column_;
    switch (key) {
        case kKeyLeft:
            --column;
            break;
        case kKeyRight:
            ++column;
            break;
        case kKeyUp:
            --row;
            break;
        case kKeyDown:
            ++row;
            break;
        case kKeyPageUp:
            row -= visibleRows_;
            break;
        case kKeyPageDown:
            row += visibleRows_;
            break;
        case kKeyHome:
            column = fixedColumns_;
            break;
        case kKeyEnd:
            column = columns_ - 1;
            break;
        default:
            return false;
    }
    if (shift != 0) return false;
    SetCell(std::max(row, fixedRows_), std::max(column, fixedColumns_));
    return true;
}

}  // namespace views
