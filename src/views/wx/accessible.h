// What screen readers and other aids are told of the real controls. The platform tells them of its
// own ones by itself; of these it lacks the names that no caption gives, and all of a grid, which
// the toolkit draws like a picture.
#pragma once

#include <wx/gdicmn.h>
#include <wx/string.h>

#include <memory>
#include <optional>

class wxWindow;

namespace views::wx {

// The name by which a control is told that has no text of its own.
void SetSpokenName(wxWindow* window, const wxString& name);

// A cell: row -1 holds the headings, a fixed column is column 0.
struct CellAt {
    int row = 0, column = 0;
    auto operator<=>(const CellAt&) const = default;
};

// A grid as it is told. Cells are asked for only inside of its rows and columns.
class ToldGrid {
  public:
    virtual ~ToldGrid() = default;
    virtual int ToldRows() const = 0;
    virtual int ToldColumns() const = 0;
    // Columns that stand for their row and are never the current one.
    virtual int HeadingColumns() const = 0;
    virtual wxString ToldText(CellAt cell) const = 0;
    // Where the keyboard is while the grid has the focus; none before there are rows.
    virtual std::optional<CellAt> ToldCurrent() const = 0;
    virtual bool IsMarked(CellAt cell) const = 0;
    // On the screen, in pixels; empty where the cell is scrolled out of view.
    virtual wxRect PlaceOf(CellAt cell) const = 0;
    // An aid moves the focus to the cell. False when it cannot go there.
    virtual bool MoveTo(CellAt cell) = 0;

    // "Density, row 3", which tells the cell without a look at the rest; of a heading its text.
    wxString NameOf(CellAt cell) const;
    std::optional<CellAt> CellUnder(const wxPoint& onScreen) const;
    // In the order in which aids count the cells: the headings, then row by row.
    int ToldCells() const { return (ToldRows() + 1) * ToldColumns(); }
    int IndexOf(CellAt cell) const { return (cell.row + 1) * ToldColumns() + cell.column; }
    CellAt CellOf(int index) const { return {index / ToldColumns() - 1, index % ToldColumns()}; }
    bool Has(CellAt cell) const {
        return cell.row >= -1 && cell.row < ToldRows() && cell.column >= 0 &&
               cell.column < ToldColumns();
    }
};

// Tells of a grid in the window that has its focus. It must go before that window; what an aid
// still holds of it then answers that it is no longer there.
class GridTeller {
  public:
    virtual ~GridTeller() = default;
    virtual void SetName(const wxString& name) = 0;
    // The grid has got the focus, or another cell is the current one.
    virtual void TellCurrent() = 0;
    // Texts or the number of rows may have changed.
    virtual void TellTexts() = 0;
};

std::unique_ptr<GridTeller> MakeGridTeller(wxWindow* window, ToldGrid& grid);

}  // namespace views::wx
