// Grids. The real grid reads its texts from the plain one through the toolkit's table interface;
// the fixed row and column are its headings.
#include <wx/arrstr.h>
#include <wx/grid.h>
#include <wx/settings.h>
#include <wx/wupdlock.h>

#include <algorithm>
#include <numeric>

#include "views/form.h"
#include "views/grid.h"
#include "views/keys.h"
#include "views/wx/accessible.h"
#include "views/wx/convert.h"
#include "views/wx/peer.h"

namespace views::wx {
namespace {

// Twips of a 96 dpi screen; what is laid out in them grows with the font.
int Pixels(const wxWindow* window, int twips) {
    const double scale = window->GetCharHeight() / 16.0;
    return static_cast<int>(twips / 15.0 * std::max(scale, 1.0));
}

int Padding(const wxWindow* window) {
    return window->FromDIP(16);
}

int WidthIn(const wxWindow* window, const wxString& text, const wxFont& font) {
    int width = 0;
    window->GetTextExtent(text, &width, nullptr, nullptr, nullptr, &font);
    return width;
}

// The text in lines that are no wider than that many pixels, as far as its words allow.
wxString Wrapped(const wxString& text, const wxGrid* grid, int width) {
    wxString lines, line;
    for (size_t at = 0; at < text.length();) {
        size_t end = text.find(' ', text.find_first_not_of(' ', at));
        end = std::min(end, text.length());
        const wxString longer = line + text.substr(at, end - at);
        if (!line.empty() && WidthIn(grid, longer, grid->GetLabelFont()) > width) {
            lines += line + "\n";
            line = text.substr(at, end - at).Trim(false);
        } else {
            line = longer;
        }
        at = end;
    }
    return lines + line;
}

// Draws the headings of columns with numbers above the numbers.
class Headings : public wxGridCellAttrProvider {
  public:
    explicit Headings(const Grid& plain) : plain_(plain) {}
    const wxGridColumnHeaderRenderer& GetColumnHeaderRenderer(int column) override {
        return plain_.IsNumberColumn(column + plain_.FixedColumns()) ? right_ : left_;
    }

  private:
    struct Renderer : wxGridColumnHeaderRendererDefault {
        explicit Renderer(int alignment) : horizontal(alignment) {}
        void DrawLabel(const wxGrid& grid, wxDC& dc, const wxString& value, const wxRect& rect, int,
                       int vertical, int orientation) const override {
            wxGridColumnHeaderRendererDefault::DrawLabel(grid, dc, value, rect, horizontal,
                                                         vertical, orientation);
        }
        int horizontal;
    };

    const Grid& plain_;
    Renderer left_{wxALIGN_LEFT}, right_{wxALIGN_RIGHT};
};

class PlainTable : public wxGridTableBase {
  public:
    explicit PlainTable(const Grid& plain) : plain_(plain) {
        SetAttrProvider(new Headings(plain));
        TakeShape();
    }

    // The real grid learns of added and removed rows by messages only.
    void TakeShape() {
        const int rows = plain_.Rows() - plain_.FixedRows();
        const int columns = plain_.Columns() - plain_.FixedColumns();
        Tell(rows - rows_, rows, wxGRIDTABLE_NOTIFY_ROWS_APPENDED, wxGRIDTABLE_NOTIFY_ROWS_DELETED);
        rows_ = rows;
        Tell(columns - columns_, columns, wxGRIDTABLE_NOTIFY_COLS_APPENDED,
             wxGRIDTABLE_NOTIFY_COLS_DELETED);
        columns_ = columns;
    }

    int GetNumberRows() override { return rows_; }
    int GetNumberCols() override { return columns_; }
    wxString GetValue(int row, int column) override {
        return TextAt(row + plain_.FixedRows(), column + plain_.FixedColumns());
    }
    void SetValue(int, int, const wxString&) override {}
    wxString GetColLabelValue(int column) override {
        return Heading(column + plain_.FixedColumns());
    }
    wxString GetRowLabelValue(int row) override {
        return plain_.FixedColumns() > 0 ? TextAt(row + plain_.FixedRows(), 0) : wxString();
    }
    wxString GetCornerLabelValue() const override { return Heading(0); }

    // A heading is wrapped in the width that the window asks for its column.
    wxString Heading(int column) const {
        const wxGrid* grid = GetView();
        if (plain_.FixedRows() == 0 || grid == nullptr) return {};
        return Wrapped(TextAt(0, column), grid,
                       Pixels(grid, plain_.ColumnWidth(column)) - Padding(grid));
    }

  private:
    void Tell(int more, int now, int appended, int deleted) {
        if (GetView() == nullptr || more == 0) return;
        wxGridTableMessage message = more > 0 ? wxGridTableMessage(this, appended, more)
                                              : wxGridTableMessage(this, deleted, now, -more);
        GetView()->ProcessTableMessage(message);
    }
    wxString TextAt(int row, int column) const {
        if (row >= plain_.Rows() || column >= plain_.Columns()) return {};
        return ToWx(plain_.Text(row, column));
    }

    const Grid& plain_;
    int rows_ = 0, columns_ = 0;
};

class GridPeer : public WindowPeer, private ToldGrid {
  public:
    GridPeer(Grid& plain, wxWindow* parent)
        : WindowPeer(plain, new wxGrid(parent, wxID_ANY)),
          plain_(plain),
          real_(static_cast<wxGrid*>(Window())),
          table_(new PlainTable(plain)) {
        real_->SetTable(table_, true, wxGrid::wxGridSelectCells);
        real_->EnableEditing(false);
        real_->DisableDragRowSize();
        real_->DisableDragCell();
        real_->SetColLabelAlignment(wxALIGN_LEFT, wxALIGN_CENTRE);
        Bind();
        teller_ = MakeGridTeller(real_->GetGridWindow(), *this);
    }
    void Leave() override { teller_.reset(); }
    void SetName(const wxString& name) override { teller_->SetName(name); }
    bool StretchesUpright() const override { return true; }
    int LeastHeight() const override {
        return real_->GetColLabelSize() + 4 * real_->GetDefaultRowSize() + ScrollBar();
    }

    void Show(Aspect changed) override {
        // Showing the current cell scrolls as well; what the window wants comes afterwards.
        if (changed == Aspect::kTopRow) wantedTop_ = plain_.TopRow();
        WindowPeer::Show(changed);
    }

  protected:
    wxWindow* InputWindow() const override { return real_->GetGridWindow(); }

    bool CanWait(Aspect) const override { return true; }
    void Update(Aspect changed) override {
        switch (changed) {
            case Aspect::kCells:
                real_->Refresh();
                teller_->TellTexts();
                break;
            case Aspect::kShape:
                ShowShape();
                teller_->TellTexts();
                break;
            case Aspect::kCurrentCell:
                ShowCell();
                teller_->TellCurrent();
                break;
            case Aspect::kHighlight:
                ShowBlock();
                break;
            case Aspect::kTopRow:
                ShowTop();
                break;
            default:
                break;
        }
    }
    void UpdateAll() override {
        ShowShape();
        FitWindow();
        ShowCell();
        ShowBlock();
    }

  private:
    void Bind() {
        real_->Bind(wxEVT_GRID_CELL_LEFT_CLICK, [this](wxGridEvent& event) {
            Forward(&Grid::ClickCell, event.GetRow(), event.GetCol());
        });
        real_->Bind(wxEVT_GRID_CELL_LEFT_DCLICK, [this](wxGridEvent& event) {
            Forward(&Grid::DoubleClickCell, event.GetRow(), event.GetCol());
        });
        real_->Bind(wxEVT_GRID_LABEL_LEFT_CLICK, [this](wxGridEvent& event) {
            Forward(&Grid::ClickCell, event.GetRow(), event.GetCol());
        });
        real_->Bind(wxEVT_GRID_LABEL_LEFT_DCLICK, [this](wxGridEvent& event) {
            Forward(&Grid::DoubleClickCell, event.GetRow(), event.GetCol());
        });
        // Dragging marks nothing: the commands know of one cell or one row only.
        for (wxWindow* part : {real_->GetGridWindow(), real_->GetGridRowLabelWindow()}) {
            part->Bind(wxEVT_MOTION, [](wxMouseEvent& event) { event.Skip(!event.LeftIsDown()); });
        }
        // Without the focus the toolkit marks cells in a pale colour, on which the colour of marked
        // text cannot be read.
        InputWindow()->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
            event.Skip();
            ShowMarkedText(wxSYS_COLOUR_HIGHLIGHTTEXT);
            real_->CallAfter([this] { teller_->TellCurrent(); });
        });
        InputWindow()->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
            event.Skip();
            ShowMarkedText(wxSYS_COLOUR_BTNTEXT);
        });
        // The whole has no use for the focus.
        real_->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent&) { InputWindow()->SetFocus(); });
        // A click beside the cells is a click on the grid too, if on no cell of it.
        for (wxWindow* part : {real_->GetGridWindow(), real_->GetGridRowLabelWindow(),
                               real_->GetGridColLabelWindow(), real_->GetGridCornerLabelWindow()}) {
            part->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
                Deliver([this] { plain_.SetFocus(); });
                event.Skip();
            });
        }
        real_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
            event.Skip();
            real_->CallAfter([this] { FitColumns(); });
        });
        InputWindow()->Bind(wxEVT_KEY_DOWN, &GridPeer::KeepFromGrid, this);
        for (auto kind :
             {wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE, wxEVT_SCROLLWIN_LINEUP,
              wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN}) {
            real_->Bind(kind, [this](wxScrollWinEvent& event) {
                event.Skip();
                real_->CallAfter([this] { ForwardScroll(); });
            });
        }
    }

    // The real grid would move its cursor and mark cells without the plain one. A key that may
    // become a character has to go on, though, or no character comes of it.
    void KeepFromGrid(wxKeyEvent& event) {
        const bool command = event.ControlDown() != event.AltDown();
        if (event.GetKeyCode() == WXK_SPACE && !event.HasModifiers()) {
            Deliver([this] { plain_.Owner().KeyPress(kKeySpace); });
        } else if (!command && !event.IsKeyInCategory(WXK_CATEGORY_NAVIGATION | WXK_CATEGORY_TAB)) {
            event.Skip();
        }
    }

    void ShowMarkedText(wxSystemColour colour) {
        real_->SetSelectionForeground(wxSystemSettings::GetColour(colour));
        real_->Refresh();
    }

    void Forward(void (Grid::*action)(int, int), int row, int column) {
        Deliver([&] {
            // A heading has the number -1.
            (plain_.*action)(row + plain_.FixedRows(), column + plain_.FixedColumns());
        });
    }

    void ForwardScroll() {
        const int top = std::max(real_->GetFirstFullyVisibleRow(), 0);
        const int height = std::max(real_->GetDefaultRowSize(), 1);
        plain_.Scrolled(top + plain_.FixedRows(),
                        real_->GetGridWindow()->GetClientSize().y / height);
    }

    void ShowShape() {
        const wxGridUpdateLocker lock(real_);
        table_->TakeShape();
        real_->SetColLabelSize(plain_.FixedRows() > 0 ? HeadingHeight() : 0);
        const int fixed = plain_.FixedColumns();
        real_->SetCornerLabelAlignment(SideOf(0), wxALIGN_CENTRE);
        real_->SetRowLabelAlignment(SideOf(0), wxALIGN_CENTRE);
        for (int column = fixed; column < plain_.Columns(); ++column) {
            auto* attributes = new wxGridCellAttr;
            attributes->SetAlignment(SideOf(column), wxALIGN_CENTRE);
            real_->SetColAttr(column - fixed, attributes);
        }
        FitColumns();
    }

    int SideOf(int column) const {
        return plain_.IsNumberColumn(column) ? wxALIGN_RIGHT : wxALIGN_LEFT;
    }

    int HeadingHeight() const {
        int height = Pixels(real_, plain_.RowHeight(0));
        for (int column = 0; column < plain_.Columns(); ++column) {
            const int lines = table_->Heading(column).Freq('\n') + 1;
            height = std::max(height, lines * real_->GetCharHeight() + real_->FromDIP(8));
        }
        return height;
    }

    // Headings have a font of their own.
    int WidthOf(int row, int column) const {
        if (row >= plain_.FixedRows()) {
            const bool heading = column < plain_.FixedColumns();
            return WidthIn(real_, ToWx(plain_.Text(row, column)),
                           heading ? real_->GetLabelFont() : real_->GetDefaultCellFont());
        }
        int width = 0;
        for (const wxString& line : wxSplit(table_->Heading(column), '\n', '\0')) {
            width = std::max(width, WidthIn(real_, line, real_->GetLabelFont()));
        }
        return width;
    }

    int LeastWidthOf(int column) const {
        int text = 0;
        for (int row = 0; row < plain_.Rows(); ++row) {
            text = std::max(text, WidthOf(row, column));
        }
        return text + Padding(real_);
    }

    int WidthOf(int column) const {
        return std::max(Pixels(real_, plain_.ColumnWidth(column)), LeastWidthOf(column));
    }

    std::vector<int> Widths() const {
        std::vector<int> widths;
        for (int column = 0; column < plain_.Columns(); ++column) widths.push_back(WidthOf(column));
        return widths;
    }

    static int ScrollBar() { return wxSystemSettings::GetMetric(wxSYS_VSCROLL_X); }

    // The window opens in its own size, wider where its texts need it and the screen allows it.
    void FitWindow() {
        const auto widths = Widths();
        const int needed = std::accumulate(widths.begin(), widths.end(), ScrollBar());
        const int most = wxSystemSettings::GetMetric(wxSYS_SCREEN_X) * 9 / 10;
        real_->SetMinSize(wxSize(std::min(std::max(Pixels(real_, plain_.Width()), needed), most),
                                 Pixels(real_, plain_.Height())));
    }

    // For the columns, beside the scroll bar that the rows need or not.
    int Room() const {
        const wxSize inside = real_->GetSize() - real_->GetWindowBorderSize();
        const int rows = real_->GetNumberRows() * real_->GetDefaultRowSize();
        return inside.x - (rows > inside.y - real_->GetColLabelSize() ? ScrollBar() : 0);
    }

    // By so many pixels in all, as far as the texts allow.
    void Narrow(std::vector<int>& widths, int pixels) const {
        for (std::size_t column = widths.size(); column-- > 0;) {
            const int least = LeastWidthOf(static_cast<int>(column));
            const int less = std::clamp(pixels, 0, std::max(widths[column] - least, 0));
            widths[column] -= less;
            pixels -= less;
        }
    }

    // Columns are as wide as the window asks, wider where a text needs it, and share what room is
    // left when the window is enlarged. Where there is too little they give some up.
    void FitColumns() {
        const int fixed = plain_.FixedColumns();
        auto widths = Widths();
        const int total = std::accumulate(widths.begin(), widths.end(), 0);
        const int room = Room();
        if (total > 0 && room > total) {
            for (int& width : widths) width = width * room / total;
        } else if (room > 0 && room < total) {
            Narrow(widths, total - room);
        }
        real_->SetRowLabelSize(fixed > 0 ? widths[0] : 0);
        for (int column = fixed; column < plain_.Columns(); ++column) {
            real_->SetColSize(column - fixed, widths[static_cast<std::size_t>(column)]);
        }
        ForwardScroll();
    }

    void ShowCell() {
        const int row = plain_.Row() - plain_.FixedRows();
        const int column = plain_.Column() - plain_.FixedColumns();
        if (row < 0 || column < 0 || row >= real_->GetNumberRows()) return;
        real_->SetGridCursor(row, column);
        // Before the window has its size, this would scroll for a size that it never has.
        if (real_->IsShownOnScreen()) real_->MakeCellVisible(row, column);
        ForwardScroll();
    }

    void ShowBlock() {
        real_->ClearSelection();
        const auto& block = plain_.Selection();
        const int row = block.firstRow - plain_.FixedRows();
        const int column = block.firstColumn - plain_.FixedColumns();
        if (!plain_.Highlight() || row < 0 || column < 0) return;
        real_->SelectBlock(row, column, block.lastRow - plain_.FixedRows(),
                           block.lastColumn - plain_.FixedColumns());
    }

    void ShowTop() {
        const int row = wantedTop_ - plain_.FixedRows();
        if (row < 0 || row >= real_->GetNumberRows()) return;
        int unit = 1;
        real_->GetScrollPixelsPerUnit(nullptr, &unit);
        real_->Scroll(-1, real_->CellToRect(row, 0).y / std::max(unit, 1));
        ForwardScroll();
    }

    // What screen readers are told: rows are those behind the headings, columns as in the grid.
    int ToldRows() const override { return plain_.Rows() - plain_.FixedRows(); }
    int ToldColumns() const override { return plain_.Columns(); }
    int HeadingColumns() const override { return plain_.FixedColumns(); }
    wxString ToldText(CellAt cell) const override {
        if (cell.row < 0 && plain_.FixedRows() == 0) return {};
        return ToWx(plain_.Text(cell.row < 0 ? 0 : PlainRow(cell), cell.column)).Trim().Trim(false);
    }
    std::optional<CellAt> ToldCurrent() const override {
        const CellAt cell{plain_.Row() - plain_.FixedRows(), plain_.Column()};
        if (cell.row < 0 || !Has(cell)) return {};
        return cell;
    }
    bool IsMarked(CellAt cell) const override {
        const auto& [firstRow, firstColumn, lastRow, lastColumn] = plain_.Selection();
        const int row = PlainRow(cell);
        return plain_.Highlight() && row >= firstRow && row <= lastRow &&
               cell.column >= firstColumn && cell.column <= lastColumn;
    }
    wxRect PlaceOf(CellAt cell) const override {
        const int column = cell.column - plain_.FixedColumns();
        const bool heading = cell.row < 0, rowHeading = column < 0;
        wxWindow* const part = heading && rowHeading ? real_->GetGridCornerLabelWindow()
                               : heading             ? real_->GetGridColLabelWindow()
                               : rowHeading          ? real_->GetGridRowLabelWindow()
                                                     : real_->GetGridWindow();
        const wxSize size = part->GetClientSize();
        const wxRect all = real_->CellToRect(std::max(cell.row, 0), std::max(column, 0));
        wxRect place(real_->CalcScrolledPosition(all.GetTopLeft()), all.GetSize());
        if (heading) place.y = 0, place.height = size.y;
        if (rowHeading) place.x = 0, place.width = size.x;
        place.Intersect(wxRect(size));
        if (place.IsEmpty() || !real_->IsShownOnScreen()) return {};
        return wxRect(part->ClientToScreen(place.GetTopLeft()), place.GetSize());
    }
    bool MoveTo(CellAt cell) override {
        if (cell.row < 0 || cell.column < plain_.FixedColumns()) return false;
        Deliver([&] {
            plain_.SetFocus();
            if (plain_.HasFocus()) plain_.SetCell(PlainRow(cell), cell.column);
        });
        return plain_.HasFocus() && ToldCurrent() == cell;
    }
    int PlainRow(CellAt cell) const { return cell.row + plain_.FixedRows(); }

    Grid& plain_;
    wxGrid* real_;
    PlainTable* table_;
    int wantedTop_ = 0;
    std::unique_ptr<GridTeller> teller_;
};

}  // namespace

std::unique_ptr<WindowPeer> MakeGridPeer(Control& control, wxWindow* parent) {
    auto* grid = dynamic_cast<Grid*>(&control);
    return grid != nullptr ? std::make_unique<GridPeer>(*grid, parent) : nullptr;
}

}  // namespace views::wx
