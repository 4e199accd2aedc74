#include "materiallist/list_editor.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "materiallist/entry_values.h"
#include "process/process_table.h"
#include "text/clean_text.h"
#include "text/numbers.h"
#include "views/grid_cells.h"
#include "views/view_procedures.h"

namespace materiallist {
namespace {

// How many characters of a text are kept.
constexpr std::size_t kTypeLength = 32, kProcessLength = 64, kThicknessLength = 13;

}  // namespace

ListEditor::ListEditor(views::Grid& grid, views::ComboBox& type, views::ComboBox& process,
                       views::TextBox& thickness, views::SpinButton& spin,
                       std::function<void(bool)> rowSelected)
    : grid_(grid),
      type_(type),
      process_(process),
      thickness_(thickness),
      spin_(spin),
      editors_{&type, &process, &thickness},
      rowSelected_(std::move(rowSelected)) {
    BindGrid();
    BindCombo(type_, kTypeColumn);
    BindCombo(process_, kProcessColumn);
    BindEditor(thickness_, kThicknessColumn);
    spin_.onSpinDown = [this] { SpinThickness(-1); };
    spin_.onSpinUp = [this] { SpinThickness(1); };
}

void ListEditor::BindGrid() {
    grid_.onClick = [this] { SelectCell(); };
    grid_.onRowClick = [this] { SelectCell(); };
    grid_.onDoubleClick = [this] { SelectRow(); };
    grid_.onCurrentCellChange = [this] { CellChanged(); };
    grid_.onMouseDown = [this] { grid_.SetHighlight(false); };
    grid_.onMouseUp = [this] { grid_.SetHighlight(true); };
    grid_.onKeyDown = [this](views::KeyEvent& event) { GridKeyDown(event); };
    grid_.onKeyPress = [this](views::CharEvent& event) { GridKeyPress(event.character); };
}

void ListEditor::BindEditor(views::Control& control, int column) {
    control.onGotFocus = [this, column] {
        BeginEdit();
        Editor(column).SetText(grid_.CurrentText());
        Editor(column).SelectAll();
        // Being in the process of an entry is enough to be asked about saving.
        if (column == kProcessColumn) Shared().MaterialListChanged = true;
    };
    control.onKeyDown = [this, column](views::KeyEvent& event) {
        // The lists of the others need the arrow keys.
        EditorKeyDown(event, column == kThicknessColumn ? views::LeavesEditor(event.key)
                                                        : event.key == views::kKeyEnter);
    };
    control.onKeyPress = [this, column](views::CharEvent&) {
        Shared().MaterialListChanged = true;
        // The key at hand comes in addition to what is left of the text.
        if (column == kThicknessColumn) thickness_.CutTo(kThicknessLength);
    };
    Editor(column).onChange = [this, column] { EditorChanged(column); };
}

void ListEditor::BindCombo(views::ComboBox& combo, int column) {
    BindEditor(combo, column);
    combo.onClick = [this, column] {
        EditorChanged(column);
        Shared().MaterialListChanged = true;
    };
}

void ListEditor::Start() {
    MakeCurrent(1, kTypeColumn);
    SelectCell();
}

void ListEditor::Append(const MaterialListEntry& entry) {
    MaterialListTable& list = TheMaterialList();
    const int row = list.EntryCount + 1;
    list.Entry(row) = entry;
    if (Shared().MaterialListSource == kSystemDefaults) list.Entry(row).Thickness = 0;
    views::InsertDataRow(grid_, EntryTexts(row), row, list.EntryCount);
    ++list.EntryCount;
    Shared().MaterialListChanged = true;
    MakeCurrent(row, kTypeColumn);
    SelectCell();
    grid_.SetFocus();
}

void ListEditor::RemoveCurrent() {
    MaterialListTable& list = TheMaterialList();
    const int row = grid_.Row();
    views::RemoveDataRow(grid_, row, list.EntryCount);
    for (int i = row; i < list.EntryCount; ++i) {
        grid_.SetText(i, 0, std::to_string(i));
        list.Entry(i) = list.Entry(i + 1);
    }
    --list.EntryCount;
    Shared().MaterialListChanged = true;
    // What is pending belongs to its entry, not to its row: it goes with it or moves up with it.
    if (EditRow == row && EditState == kEditPending) EditState = kNothingPending;
    if (EditRow > row) --EditRow;
    MakeCurrent(grid_.Row(), grid_.Column());
    SelectCell();
    grid_.SetFocus();
}

// Makes a cell current from code. What belongs to a change of the current cell is done even where
// its numbers stay the same: its row may show another entry now.
void ListEditor::MakeCurrent(int row, int column) {
    grid_.SetCell(row, column, views::Grid::Handlers::kNone);
    CellChanged();
}

void ListEditor::CellChanged() {
    rowSelected_(false);
    if (grid_.Row() < 1) return;
    views::KeepRowInView(grid_, 5);
    ShowEditor();
}

bool ListEditor::HasEditor(int column) const {
    return TheMaterialList().EntryCount > 0 &&
           (column != kThicknessColumn || Shared().MaterialListSource != kSystemDefaults);
}

// Shows the editor of the current column with the cell's text in it.
void ListEditor::ShowEditor() {
    const int shown = HasEditor(grid_.Column()) ? grid_.Column() : 0;
    const std::pair<views::Control*, int> editors[] = {{&type_, kTypeColumn},
                                                       {&process_, kProcessColumn},
                                                       {&thickness_, kThicknessColumn},
                                                       {&spin_, kThicknessColumn}};
    for (const auto& [editor, column] : editors) {
        // Hidden with the focus, it would pass it on to whatever comes next in the window, while
        // the operator goes on in the grid.
        if (column != shown && editor->HasFocus()) grid_.SetFocus();
        editor->SetVisible(column == shown);
    }
    if (shown != 0) Editor(shown).SetText(grid_.CurrentText());
}

// Selects the current cell; an edit that is pending in another one is committed first.
void ListEditor::SelectCell() {
    if (TheMaterialList().EntryCount < 1) return;
    if (grid_.Row() < 1 || grid_.Column() < 1) {
        MakeCurrent(std::max(grid_.Row(), 1), std::max(grid_.Column(), 1));
    }
    if (!IsPending()) CommitPending();
    SelRow = grid_.Row();
    SelCol = grid_.Column();
    EditState = kCellSelected;
    grid_.SetHighlight(true);
    grid_.SelectBlock({SelRow, SelCol, SelRow, SelCol});
    rowSelected_(false);
}

void ListEditor::SelectRow() {
    if (TheMaterialList().EntryCount < 1) return;
    views::SelectDataRow(grid_);
    rowSelected_(true);
}

// Follows a key that leads to another cell, kept on the entries.
void ListEditor::MoveBy(views::KeyEvent& event, int rowStep) {
    const int count = TheMaterialList().EntryCount;
    const views::Cell target = views::KeyTarget(grid_, event, count, rowStep);
    MakeCurrent(target.row > count ? count : std::max(target.row, 1), target.column);
}

// Whether the current row shows an entry; the blank row of an empty list does not.
bool ListEditor::OnEntry() const {
    return grid_.Row() >= 1 && grid_.Row() <= TheMaterialList().EntryCount;
}

// From here on an edit is pending in the current cell.
void ListEditor::BeginEdit() {
    EditRow = grid_.Row();
    EditCol = grid_.Column();
    EditState = kEditPending;
}

bool ListEditor::IsPending() const {
    return EditState == kEditPending && EditRow == grid_.Row() && EditCol == grid_.Column();
}

void ListEditor::GridKeyDown(views::KeyEvent& event) {
    const bool arrow = views::IsArrow(event.key);
    const bool leads = arrow || event.key == views::kKeyTab || event.key == views::kKeyEnter;
    if (leads) {
        BeginEdit();
        CommitCell();
        MoveBy(event, 0);  // selects the cell, too
        grid_.SetHighlight(true);
        // Plain arrow keys are the grid's own movement.
        event.handled = !arrow || event.shift != 0;
    } else if (views::IsPaging(event.key) && event.shift == 0) {
        // They leave the cell as well, by the grid's own movement.
        if (IsPending()) {
            CommitCell();
            ShowEditor();
        }
        rowSelected_(false);
    }
}

// The first character replaces the text of the cell, the next ones are added to it.
void ListEditor::GridKeyPress(char character) {
    const int column = grid_.Column();
    if (!HasEditor(column)) return;
    if (character != views::kKeyBackspace && !text::IsPrintableChar({&character, 1})) return;

    const bool begins =
        EditState == kCellSelected ? SelRow == grid_.Row() || SelCol == column : !IsPending();
    // By the column last selected, whatever the keyboard has moved to since.
    const std::size_t longest = SelCol == kTypeColumn      ? kTypeLength
                                : SelCol == kProcessColumn ? kProcessLength
                                                           : std::string::npos;
    const std::string text =
        views::Typed(begins ? std::string() : grid_.CurrentText(), character, longest);
    Shared().MaterialListChanged = true;
    BeginEdit();
    StoreCell(column, text);
    Editor(column).SetText(text);
}

void ListEditor::EditorKeyDown(views::KeyEvent& event, bool leaves) {
    Shared().MaterialListChanged = true;
    if (!leaves) return;
    // Before the move, which may lead back to this cell.
    CommitCell();
    MoveBy(event, 1);
    SelectCell();
    grid_.SetFocus();
}

// The current cell follows its editor. The window itself only ever copies the cell into the editor,
// so where they differ the operator has changed the text, be it without any key (pasted by mouse).
void ListEditor::EditorChanged(int column) {
    const std::string& text = Editor(column).Text();
    if (text != grid_.Text(grid_.Row(), column)) Shared().MaterialListChanged = true;
    StoreCell(column, text);
}

void ListEditor::SpinThickness(int step) {
    Shared().MaterialListChanged = true;
    thickness_.SetText(text::NumberText(text::ToSingle(text::Val(thickness_.Text()) + step)));
    ValidateThickness();
    thickness_.SelectAll();
}

// Puts a text into a cell of the current row and into its entry.
void ListEditor::StoreCell(int column, std::string_view value) {
    if (!OnEntry()) return;
    grid_.SetText(grid_.Row(), column, value);
    MaterialListEntry& entry = TheMaterialList().Entry(grid_.Row());
    if (column == kTypeColumn) entry.MaterialType = value;
    if (column == kProcessColumn) entry.ProcessName = value;
    if (column == kThicknessColumn) entry.Thickness = text::ToSingle(value);
}

// Turns the text of the current cell into a value of the tables: the first code or process that
// begins with it, or the first of all. Without any the cell stays as it is.
void ListEditor::CommitCell() {
    if (!OnEntry()) return;
    const int column = grid_.Column();
    if (column != kThicknessColumn) {
        const auto values = column == kTypeColumn ? TypeCodes() : ProcessNames();
        const int number = NumberBeginningWith(values, grid_.CurrentText());
        if (!values.empty()) StoreCell(column, values[static_cast<std::size_t>(number) - 1]);
        if (column == kTypeColumn) return;
        process::Shared().CurrentProcess = static_cast<std::int16_t>(number);
    }
    // Another process has another range of thicknesses.
    ValidateThickness();
}

void ListEditor::CommitPending() {
    if (EditState != kEditPending) return;
    EditState = kNothingPending;
    const views::Cell current = views::CurrentCell(grid_);
    grid_.SetCell(EditRow, EditCol, views::Grid::Handlers::kNone);
    CommitCell();
    // It may have put the thickness of the other row into the thickness editor.
    MakeCurrent(current.row, current.column);
}

// Limits the thickness of the current row to the range of its process.
void ListEditor::ValidateThickness() {
    if (Shared().MaterialListSource == kSystemDefaults) return;
    MaterialListEntry& entry = TheMaterialList().Entry(grid_.Row());
    const int number = LimitThickness(entry);
    process::Shared().CurrentProcess = static_cast<std::int16_t>(number);
    if (number > process::TheProcesses().ProcessCount) return;
    const float thickness = entry.Thickness;
    const std::string text = text::ShownNumber(thickness);
    grid_.SetText(grid_.Row(), kThicknessColumn, text);
    thickness_.SetText(text);
    // Its Change has stored the text, which has fewer digits than the thickness may have.
    entry.Thickness = thickness;
}

}  // namespace materiallist
