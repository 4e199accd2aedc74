// Grids. The real grid reads its texts from the plain one through the toolkit's table interface;
// the fixed row and column are its headings.
#include <wx/grid.h>
#include <wx/settings.h>
#include <wx/wupdlock.h>

#include <algorithm>

#include "views/application.h"
#include "views/form.h"
#include "views/grid.h"
#include "views/wx/convert.h"
#include "views/wx/peer.h"

namespace views::mirror {
namespace {

class PlainTable : public wxGridTableBase {
  public:
    explicit PlainTable(const Grid& plain) : plain_(plain) { TakeShape(); }

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
        return plain_.FixedRows() > 0 ? TextAt(0, column + plain_.FixedColumns()) : wxString();
    }
    wxString GetRowLabelValue(int row) override {
        return plain_.FixedColumns() > 0 ? TextAt(row + plain_.FixedRows(), 0) : wxString();
    }
    wxString GetCornerLabelValue() const override { return TextAt(0, 0); }

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

class GridPeer : public WindowPeer {
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
        real_->SetMinSize(wxSize(Pixels(plain.Width()), Pixels(plain.Height())));
        real_->SetColLabelAlignment(wxALIGN_LEFT, wxALIGN_CENTRE);
        real_->SetRowLabelAlignment(wxALIGN_LEFT, wxALIGN_CENTRE);
        Bind();
    }
    bool StretchesUpright() const override { return true; }

  protected:
    wxWindow* InputWindow() const override { return real_->GetGridWindow(); }

    bool CanWait(Aspect) const override { return true; }
    void Update(Aspect changed) override {
        switch (changed) {
            case Aspect::kCells:
                real_->Refresh();
                break;
            case Aspect::kShape:
                ShowShape();
                break;
            case Aspect::kCurrentCell:
                ShowCell();
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
        real_->Bind(wxEVT_GRID_RANGE_SELECTING, [](wxGridRangeSelectEvent& e) { e.Veto(); });
        real_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
            event.Skip();
            real_->CallAfter([this] { FitColumns(); });
        });
        for (auto kind :
             {wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE, wxEVT_SCROLLWIN_LINEUP,
              wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN}) {
            real_->Bind(kind, [this](wxScrollWinEvent& event) {
                event.Skip();
                real_->CallAfter([this] { ForwardScroll(); });
            });
        }
    }

    void Forward(void (Grid::*action)(int, int), int row, int column) {
        Guard([&] {
            UpdateNow();
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

    // Twips of a 96 dpi screen; what is laid out in them grows with the font.
    int Pixels(int twips) const {
        const double scale = real_->GetCharHeight() / 16.0;
        return static_cast<int>(twips / 15.0 * std::max(scale, 1.0));
    }

    void ShowShape() {
        const wxGridUpdateLocker lock(real_);
        table_->TakeShape();
        const bool heading = plain_.FixedRows() > 0;
        real_->SetColLabelSize(heading ? std::max(Pixels(plain_.RowHeight(0)), LineHeight()) : 0);
        FitColumns();
    }

    int LineHeight() const { return real_->GetCharHeight() + real_->FromDIP(8); }

    int WidthOf(int column) const {
        int text = 0;
        for (int row = 0; row < plain_.Rows(); ++row) {
            text = std::max(text, real_->GetTextExtent(ToWx(plain_.Text(row, column))).x);
        }
        return std::max(Pixels(plain_.ColumnWidth(column)), text + real_->FromDIP(16));
    }

    // Columns are as wide as the window asks, wider where a text needs it, and share what room is
    // left when the window is enlarged.
    void FitColumns() {
        const int fixed = plain_.FixedColumns();
        std::vector<int> widths;
        int total = 0;
        for (int column = 0; column < plain_.Columns(); ++column) {
            widths.push_back(WidthOf(column));
            total += widths.back();
        }
        const int room = real_->GetClientSize().x - wxSystemSettings::GetMetric(wxSYS_VSCROLL_X);
        if (total > 0 && room > total) {
            for (int& width : widths) width = width * room / total;
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
        const int row = plain_.TopRow() - plain_.FixedRows();
        if (row < 0 || row >= real_->GetNumberRows()) return;
        int unit = 1;
        real_->GetScrollPixelsPerUnit(nullptr, &unit);
        real_->Scroll(-1, real_->CellToRect(row, 0).y / std::max(unit, 1));
        ForwardScroll();
    }

    Grid& plain_;
    wxGrid* real_;
    PlainTable* table_;
};

}  // namespace

std::unique_ptr<WindowPeer> MakeGridPeer(Control& control, wxWindow* parent) {
    auto* grid = dynamic_cast<Grid*>(&control);
    return grid != nullptr ? std::make_unique<GridPeer>(*grid, parent) : nullptr;
}

}  // namespace views::mirror
