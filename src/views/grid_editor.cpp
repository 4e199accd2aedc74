#include "views/grid_editor.h"

#include <algorithm>
#include <utility>

#include "text/numbers.h"
#include "views/view_procedures.h"

namespace views {

std::string NumberCellText(std::string_view text) {
    return text::ShownNumber(text::ToSingle(text));
}

GridEditor::GridEditor(Grid& grid, TextBox& box, CommandButton& remove, Rules rules)
    : grid_(grid), box_(box), remove_(remove), rules_(std::move(rules)) {
    BindGrid();
    BindBox();
}

void GridEditor::BindGrid() {
    grid_.onClick = [this] { EnterCell(); };
    grid_.onRowClick = [this] { RowClick(); };
    grid_.onCurrentCellChange = [this] { CellChanged(); };
    grid_.onKeyDown = [this](KeyEvent& event) { GridKeyDown(event); };
    grid_.onKeyPress = [this](CharEvent& event) { GridKeyPress(event); };
    // The mark goes while the grid shows its own cursor and nothing was chosen yet. It is there
    // when the focus is elsewhere, so that one sees what the box edits and Delete removes.
    grid_.onGotFocus = [this] { grid_.SetHighlight(false); };
    grid_.onLostFocus = [this] { grid_.SetHighlight(true); };
}

void GridEditor::BindBox() {
    box_.onGotFocus = [this] { box_.SelectAll(); };
    box_.onKeyDown = [this](KeyEvent& event) { BoxKeyDown(event); };
    box_.onKeyPress = [this](CharEvent&) { BoxKeyPress(); };
    box_.onChange = [this] {
        grid_.SetCurrentText(box_.Text());
        // A text can be pasted or dropped without any key.
        if (!mirroring_) rules_.edited();
    };
}

void GridEditor::Start() {
    entered_ = typed_ = {};
    grid_.SetCell(1, 1, Grid::Handlers::kNone);
    CellChanged();
}

void GridEditor::EnterCell() {
    EnterCell(grid_.Row(), grid_.Column());
}

void GridEditor::EnterCell(int row, int column) {
    if (rules_.count() == 0) return;
    const Cell left = std::exchange(entered_, {std::max(row, 1), std::max(column, 1)});
    if (rules_.tidiesGrid) Tidy(left);
    grid_.SetCell(entered_.row, entered_.column);
    grid_.SetHighlight(true);
    box_.SetEnabled(true);
    remove_.SetEnabled(true);
    ShowInBox();
}

void GridEditor::CellChanged() {
    if (typed_ != CurrentCell(grid_)) typed_ = {};
    const bool empty = rules_.count() == 0 && grid_.Row() == 1;
    box_.SetEnabled(!empty);
    ShowInBox();
    KeepRowInView(grid_, 6);
}

void GridEditor::ShowInBox() {
    const std::string text = box_.Enabled() ? grid_.CurrentText() : std::string();
    mirroring_ = true;
    box_.SetText(text);
    mirroring_ = false;
}

void GridEditor::Navigate(KeyEvent& event, bool tidies) {
    const Cell target = KeyTarget(grid_, event, rules_.count(), 1);
    if (!event.handled) return;
    if (tidies && rules_.count() > 0) Tidy(CurrentCell(grid_));
    grid_.SetCell(std::clamp(target.row, 1, std::max(rules_.count(), 1)), target.column);
    EnterCell();
}

void GridEditor::Tidy(Cell cell) {
    if (cell.row < 1 || !IsNumber(cell.column)) return;
    grid_.SetText(cell.row, cell.column, NumberCellText(grid_.Text(cell.row, cell.column)));
}

void GridEditor::GridKeyDown(KeyEvent& event) {
    // What the navigation of the windows leaves to the grid.
    const bool own = IsPaging(event.key) || event.key == kKeyLeft || event.key == kKeyRight;
    if (!own || event.shift != 0) return Navigate(event, rules_.tidiesGrid);
    event.handled = grid_.HandleKey(event.key, event.shift);
    EnterCell();
}

void GridEditor::GridKeyPress(CharEvent& event) {
    event.handled = true;
    const bool back = event.character == kKeyBackspace;
    if (rules_.count() == 0 || (!back && !rules_.accepts(event.character))) return;
    // The first key in a cell replaces what is there.
    const bool goesOn = typed_ == CurrentCell(grid_);
    typed_ = CurrentCell(grid_);
    const auto longest = IsNumber(typed_.column) ? rules_.numberLength : std::string::npos;
    grid_.SetCurrentText(
        Typed(goesOn ? grid_.CurrentText() : std::string(), event.character, longest));
    ShowInBox();
    rules_.edited();
}

void GridEditor::RowClick() {
    if (rules_.count() == 0) return;
    SelectDataRow(grid_);
    remove_.SetEnabled(true);
}

void GridEditor::BoxKeyDown(KeyEvent& event) {
    rules_.edited();
    if (!LeavesEditor(event.key)) return;
    // The cell has the text of the box already.
    Navigate(event, true);
    // As when the box gets the focus: typing goes on with a new text.
    box_.SelectAll();
}

// A number that is too long already is cut, then takes the character that is being typed.
void GridEditor::BoxKeyPress() {
    rules_.edited();
    if (IsNumber(grid_.Column())) box_.CutTo(rules_.numberLength);
}

void GridEditor::InsertRow(const std::vector<std::string>& texts, int row) {
    typed_ = {};
    InsertDataRow(grid_, texts, row, rules_.count());
}

void GridEditor::RemoveCurrentRow() {
    const int row = grid_.Row();
    RemoveDataRow(grid_, row, rules_.count());
    typed_ = {};
    // The cell entered last moves up with its row or is gone with it.
    if (entered_.row == row) {
        entered_ = {};
    } else if (entered_.row > row) {
        --entered_.row;
    }
}

}  // namespace views
