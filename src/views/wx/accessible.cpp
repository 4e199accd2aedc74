#include "views/wx/accessible.h"

namespace views::wx {

wxString ToldGrid::NameOf(CellAt cell) const {
    wxString heading = ToldText({-1, cell.column});
    if (cell.row >= 0) heading << (heading.empty() ? "row " : ", row ") << cell.row + 1;
    return heading;
}

std::optional<CellAt> ToldGrid::CellUnder(const wxPoint& onScreen) const {
    for (int index = 0; index < ToldCells(); ++index) {
        if (PlaceOf(CellOf(index)).Contains(onScreen)) return CellOf(index);
    }
    return {};
}

}  // namespace views::wx
