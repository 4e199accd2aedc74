// Editing the texts of a grid, as the windows with tables do it: the current cell can be edited in
// a box beside the grid, which mirrors it, or by typing into the grid itself.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "views/basic_controls.h"
#include "views/grid_cells.h"
#include "views/text_box.h"

namespace views {

// A number as a cell shows it: the leading number of the text, at most 7 significant digits, "0"
// for a negative one or none.
std::string NumberCellText(std::string_view text);

// The grid has one heading row and one fixed column. Without data it keeps one empty row, in which
// nothing can be edited.
class GridEditor {
  public:
    // What the windows differ in.
    struct Rules {
        std::function<int()> count;    // data rows, which begin at row 1
        int firstNumberColumn;         // this one and those behind it hold numbers
        std::size_t numberLength;      // how many characters of a number are kept
        bool (*accepts)(char);         // what can be typed into the grid, besides Backspace
        bool tidiesGrid;               // a number is also put in order when its cell is left
                                       // from the grid, not only from the box
        std::function<void()> edited;  // the operator has edited something
    };

    // Binds the handlers of the grid and the box. `remove` is enabled when a cell is entered.
    GridEditor(Grid& grid, TextBox& box, CommandButton& remove, Rules rules);

    const Grid& Cells() const { return grid_; }

    // After the grid was filled: forgets which cells were entered and typed in and makes the first
    // one current.
    void Start();

    // The operator has come to the current cell. Nothing while there is no data.
    void EnterCell();
    void EnterCell(int row, int column);

    // The current cell is another, or its text is: shows it in the box and keeps it in view.
    void CellChanged();

    // Both keep the blank row of a grid without data, so the count must still be the old one.
    void InsertRow(const std::vector<std::string>& texts, int row);
    void RemoveCurrentRow();

  private:
    bool IsNumber(int column) const { return column >= rules_.firstNumberColumn; }

    void BindGrid();
    void BindBox();
    void GridKeyDown(KeyEvent& event);
    void GridKeyPress(CharEvent& event);
    void RowClick();
    void BoxKeyDown(KeyEvent& event);
    void BoxKeyPress();

    // Follows a key that leads to another cell; puts a number in order first if it `tidies`.
    void Navigate(KeyEvent& event, bool tidies);
    void Tidy(Cell cell);
    void ShowInBox();

    Grid& grid_;
    TextBox& box_;
    CommandButton& remove_;
    Rules rules_;
    Cell entered_;            // the last cell entered
    Cell typed_;              // the cell whose text typing into the grid goes on with
    bool mirroring_ = false;  // the box is given a text that nobody has typed
};

}  // namespace views
