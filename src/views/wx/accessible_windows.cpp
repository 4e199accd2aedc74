// Active Accessibility. Aids ask the window itself, which the toolkit answers from the objects that
// are made here; a cell is a numbered part of its grid and has no object of its own.
#include <wx/access.h>
#include <wx/window.h>

#include <utility>

#include "views/wx/accessible.h"

namespace views::wx {
namespace {

// All but the name is as the platform tells it.
class Named : public wxWindowAccessible {
  public:
    Named(wxWindow* of, const wxString& name) : wxWindowAccessible(of), name_(name) {}
    wxAccStatus GetName(int child, wxString* result) override {
        if (child != wxACC_SELF) return wxWindowAccessible::GetName(child, result);
        *result = name_;
        return wxACC_OK;
    }

  protected:
    wxString name_;
};

// Part 0 is the grid, the others are its cells; without a grid any more there are none.
class TableAccessible : public Named {
  public:
    TableAccessible(wxWindow* window, ToldGrid& grid) : Named(window, wxString()), grid_(&grid) {}

    void SetName(const wxString& name) { name_ = name; }
    void LetGo() { grid_ = nullptr; }

    wxAccStatus GetChildCount(int* count) override {
        *count = grid_ == nullptr ? 0 : grid_->ToldCells();
        return wxACC_OK;
    }
    wxAccStatus GetChild(int, wxAccessible** child) override {
        *child = nullptr;
        return wxACC_OK;
    }
    wxAccStatus GetName(int part, wxString* name) override {
        if (part == wxACC_SELF) return Named::GetName(part, name);
        return Of(part, [&](CellAt cell) { *name = grid_->NameOf(cell); });
    }
    wxAccStatus GetValue(int part, wxString* value) override {
        if (part == wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
        return Of(part, [&](CellAt cell) { *value = grid_->ToldText(cell); });
    }
    wxAccStatus GetRole(int part, wxAccRole* role) override {
        *role = wxROLE_SYSTEM_TABLE;
        if (part == wxACC_SELF) return wxACC_OK;
        return Of(part, [&](CellAt cell) {
            *role = cell.row < 0                            ? wxROLE_SYSTEM_COLUMNHEADER
                    : cell.column < grid_->HeadingColumns() ? wxROLE_SYSTEM_ROWHEADER
                                                            : wxROLE_SYSTEM_CELL;
        });
    }
    wxAccStatus GetState(int part, long* state) override {
        if (part == wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
        return Of(part, [&](CellAt cell) {
            *state = wxACC_STATE_SYSTEM_READONLY;
            if (cell.row >= 0 && cell.column >= grid_->HeadingColumns()) {
                *state = wxACC_STATE_SYSTEM_FOCUSABLE | wxACC_STATE_SYSTEM_SELECTABLE;
                if (grid_->IsMarked(cell)) *state |= wxACC_STATE_SYSTEM_SELECTED;
                if (HasFocus(cell)) *state |= wxACC_STATE_SYSTEM_FOCUSED;
            }
            if (grid_->PlaceOf(cell).IsEmpty()) *state |= wxACC_STATE_SYSTEM_OFFSCREEN;
        });
    }
    wxAccStatus GetLocation(wxRect& place, int part) override {
        if (part == wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
        return Of(part, [&](CellAt cell) { place = grid_->PlaceOf(cell); });
    }
    wxAccStatus GetFocus(int* part, wxAccessible** child) override {
        *child = nullptr;
        *part = CurrentPart();
        if (*part == wxACC_SELF || !GetWindow()->HasFocus()) return wxACC_NOT_IMPLEMENTED;
        return wxACC_OK;
    }
    wxAccStatus HitTest(const wxPoint& at, int* part, wxAccessible** child) override {
        *child = nullptr;
        const auto cell = grid_ == nullptr ? std::nullopt : grid_->CellUnder(at);
        if (!cell) return wxACC_NOT_IMPLEMENTED;
        *part = PartOf(*cell);
        return wxACC_OK;
    }
    wxAccStatus Select(int part, wxAccSelectionFlags flags) override {
        if (part == wxACC_SELF || (flags & wxACC_SEL_TAKEFOCUS) == 0) return wxACC_NOT_IMPLEMENTED;
        bool moved = false;
        const wxAccStatus status = Of(part, [&](CellAt cell) { moved = grid_->MoveTo(cell); });
        return status == wxACC_OK && !moved ? wxACC_FAIL : status;
    }

    int PartOf(CellAt cell) const { return grid_->IndexOf(cell) + 1; }
    int CurrentPart() const {
        const auto current = grid_ == nullptr ? std::nullopt : grid_->ToldCurrent();
        return current ? PartOf(*current) : wxACC_SELF;
    }

  private:
    template <class Tell>
    wxAccStatus Of(int part, const Tell& tell) {
        if (grid_ == nullptr || part < 1 || part > grid_->ToldCells()) return wxACC_INVALID_ARG;
        tell(grid_->CellOf(part - 1));
        return wxACC_OK;
    }
    bool HasFocus(CellAt cell) { return GetWindow()->HasFocus() && grid_->ToldCurrent() == cell; }

    ToldGrid* grid_;
};

class WindowsTeller : public GridTeller {
  public:
    // The window owns what it answers with.
    WindowsTeller(wxWindow* window, ToldGrid& grid)
        : window_(window),
          table_(new TableAccessible(window, grid)),
          rows_(grid.ToldRows()),
          grid_(grid) {
        window->SetAccessible(table_);
    }
    ~WindowsTeller() override { table_->LetGo(); }
    WindowsTeller(const WindowsTeller&) = delete;
    WindowsTeller& operator=(const WindowsTeller&) = delete;

    void SetName(const wxString& name) override { table_->SetName(name); }
    void TellCurrent() override {
        if (table_->CurrentPart() != wxACC_SELF && window_->HasFocus()) {
            Tell(wxACC_EVENT_OBJECT_FOCUS, table_->CurrentPart());
        }
    }
    // What is typed goes into the current cell; what else changes is read when somebody goes there.
    void TellTexts() override {
        const int before = std::exchange(rows_, grid_.ToldRows());
        if (before != rows_) Tell(wxACC_EVENT_OBJECT_REORDER, wxACC_SELF);
        if (table_->CurrentPart() != wxACC_SELF) {
            Tell(wxACC_EVENT_OBJECT_VALUECHANGE, table_->CurrentPart());
        }
    }

  private:
    void Tell(int event, int part) {
        wxAccessible::NotifyEvent(event, window_, wxOBJID_CLIENT, part);
    }

    wxWindow* window_;
    TableAccessible* table_;
    int rows_;
    ToldGrid& grid_;
};

}  // namespace

void SetSpokenName(wxWindow* window, const wxString& name) {
    window->SetAccessible(new Named(window, name));
}

std::unique_ptr<GridTeller> MakeGridTeller(wxWindow* window, ToldGrid& grid) {
    return std::make_unique<WindowsTeller>(window, grid);
}

}  // namespace views::wx
