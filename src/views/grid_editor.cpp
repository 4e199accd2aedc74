#include "views/grid_editor.h"

#include <algorithm>
#include <utility>

#include "text/numbers.h"
#include "views/view_procedures.h"

namespace views {
namespace {

// The grid's own movement, which the navigation of the windows leaves to it.
bool IsOwnMovement(int key, int shift) {
    switch (key) {
        case kKeyLeft:
        case kKeyRight:
        case kKeyPageUp:
        case kKeyPageDown:
        case kKeyHome:
        case kKeyEnd:
            return shift == 0;
        default:
            return false;
    }
}

}  // namespace

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
    if (typed_ != Current()) typed_ = {};
    const bool empty = rules_.count() == 0 && grid_.Row() == 1;
    box_.SetEnabled(!empty);
    ShowInBox();
    KeepInView();
}

void GridEditor::ShowInBox() {
    const std::string text = box_.Enabled() ? grid_.CurrentText() : std::string();
    mirroring_ = true;
    box_.SetText(text);
    mirroring_ = false;
}

// A cell out of view comes to the top; so does one that is 6 rows below it, however many the grid
// has room for.
void GridEditor::KeepInView() {
    constexpr int kRowsInView = 6;
    if (grid_.Rows() <= kRowsInView) return;
    const int row = grid_.Row();
    if (grid_.TopRow() > row || grid_.TopRow() <= row - kRowsInView) grid_.SetTopRow(row);
}

void GridEditor::Navigate(KeyEvent& event, int lastRow, bool tidies) {
    int row = grid_.Row();
    int column = grid_.Column();
    NavigateCell(event.key, event.shift, event.handled, row, column, lastRow, grid_.Columns() - 1,
                 1);
    if (!event.handled) return;
    if (tidies && rules_.count() > 0) Tidy(Current());
    grid_.SetCell(std::max(std::min(row, rules_.count()), 1),
                  std::clamp(column, 1, grid_.Columns() - 1));
    EnterCell();
}

void GridEditor::Tidy(Cell cell) {
    if (cell.row < 1 || !IsNumber(cell.column)) return;
    grid_.SetText(cell.row, cell.column, NumberCellText(grid_.Text(cell.row, cell.column)));
}

void GridEditor::GridKeyDown(KeyEvent& event) {
    if (!IsOwnMovement(event.key, event.shift)) {
        return Navigate(event, rules_.count(), rules_.tidiesGrid);
    }
    event.handled = grid_.HandleKey(event.key, event.shift);
    EnterCell();
}

void GridEditor::GridKeyPress(CharEvent& event) {
    event.handled = true;
    const bool back = event.character == kKeyBackspace;
    if (rules_.count() == 0 || (!back && !rules_.accepts(event.character))) return;
    // The first key in a cell replaces what is there.
    std::string text = typed_ == Current() ? grid_.CurrentText() : std::string();
    typed_ = Current();
    if (!back) {
        text += event.character;
    } else if (!text.empty()) {
        text.pop_back();
    }
    if (IsNumber(grid_.Column()) && text.size() > rules_.numberLength) {
        text.resize(rules_.numberLength);
    }
    grid_.SetCurrentText(text);
    ShowInBox();
    rules_.edited();
}

void GridEditor::RowClick() {
    if (rules_.count() == 0) return;
    grid_.SelectBlock({grid_.Row(), 1, grid_.Row(), grid_.Columns() - 1});
    grid_.SetHighlight(true);
    remove_.SetEnabled(true);
}

void GridEditor::BoxKeyDown(KeyEvent& event) {
    rules_.edited();
    switch (event.key) {
        case kKeyDown:
        case kKeyEnter:
        case kKeyTab:
        case kKeyUp:
            break;
        default:
            return;
    }
    // The cell has the text of the box already.
    Navigate(event, grid_.Rows() - 1, true);
    // As when the box gets the focus: typing goes on with a new text.
    box_.SelectAll();
}

// A number that is too long already is cut, then takes the character that is being typed.
void GridEditor::BoxKeyPress() {
    rules_.edited();
    if (!IsNumber(grid_.Column()) || box_.Text().size() <= rules_.numberLength) return;
    box_.SetText(box_.Text().substr(0, rules_.numberLength));
    box_.Select(rules_.numberLength, 0);
}

void GridEditor::InsertRow(const std::vector<std::string>& texts, int row) {
    typed_ = {};
    grid_.AddRow(texts, row);
    if (rules_.count() == 0) grid_.RemoveRow(row == 1 ? 2 : 1);
}

void GridEditor::RemoveCurrentRow() {
    if (rules_.count() == 1) grid_.AddRow({});
    const int row = grid_.Row();
    grid_.RemoveRow(row);
    typed_ = {};
    // The cell entered last moves up with its row or is gone with it.
    if (entered_.row == row) {
        entered_ = {};
    } else if (entered_.row > row) {
        --entered_.row;
    }
}

}  // namespace views
