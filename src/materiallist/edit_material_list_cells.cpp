// The cells of the grid: filling them, selecting them, and turning what was typed into a value of
// the tables.
#include <algorithm>
#include <span>
#include <stdexcept>

#include "materiallist/edit_material_list.h"
#include "materialtypes/material_type_table.h"
#include "process/process_table.h"
#include "text/clean_text.h"
#include "text/numbers.h"
#include "text/strings.h"
#include "views/view_procedures.h"

namespace materiallist {
namespace {

// The form in which codes and process names are compared.
std::string Comparable(std::string_view value) {
    std::string upper = text::UpperCase(value);
    return text::CleanText(upper);
}

std::span<const std::string> TypeCodes() {
    const auto& types = materialtypes::TheMaterialTypes();
    return std::span(types.Codes).first(types.Count);
}

std::span<const std::string> ProcessNames() {
    const auto& processes = process::TheProcesses();
    return std::span(processes.ProcessNames).first(processes.ProcessCount);
}

// The number, counted from 1, of the first value that begins with the text; 1 if none does.
int NumberBeginningWith(std::span<const std::string> values, std::string_view beginning) {
    const std::string sought = Comparable(beginning);
    const auto found = std::find_if(values.begin(), values.end(), [&](const std::string& value) {
        return Comparable(value).starts_with(sought);
    });
    return found == values.end() ? 1 : static_cast<int>(found - values.begin()) + 1;
}

// The number of the process of that name; their count + 1 if there is none.
int NumberOfProcess(std::string_view name) {
    const std::string sought = Comparable(name);
    const auto names = ProcessNames();
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& value) {
        return Comparable(value) == sought;
    });
    return static_cast<int>(found - names.begin()) + 1;
}

bool IsProcess(int number) {
    return number <= process::TheProcesses().ProcessCount;
}

// A thickness within the range that a process has rows for.
float Limited(float thickness, int number) {
    const auto& processes = process::TheProcesses();
    const std::size_t index = static_cast<std::size_t>(number) - 1;
    return std::max(std::min(thickness, processes.ProcessThicknessMax[index]),
                    processes.ProcessThicknessMin[index]);
}

}  // namespace

void FrmEditMaterialList::FillMaterialGrid() {
    views::Grid& grid = grdMaterialList;
    grid.SetShape(2, 4, 1, 1);
    grid.SetRowHeight(0, grid.Height() / 4);
    grid.SetColumnWidth(0, grid.Width() / 8);
    for (int column = 1; column <= 3; ++column) {
        grid.SetColumnWidth(column, (grid.Width() + 500) / 4);
    }
    grid.SetNumberColumn(0);
    grid.SetNumberColumn(kThicknessColumn);
    grid.SetText(0, 0, "Index");
    grid.SetText(0, kTypeColumn, "Material Type Code");
    grid.SetText(0, kProcessColumn, "Process Name");
    grid.SetText(0, kThicknessColumn, "Thickness (mm)");

    MaterialListTable& list = TheMaterialList();
    for (int i = 1; i <= list.EntryCount; ++i) {
        // The thicknesses of a process may have been edited since the list was saved. Following
        // them is no change that the operator is asked to save.
        MaterialListEntry& entry = list.Entry(i);
        const int number = NumberOfProcess(entry.ProcessName.View());
        if (Shared().MaterialListSource != kSystemDefaults && IsProcess(number)) {
            entry.Thickness = Limited(entry.Thickness, number);
        }
        grid.AddRow(RowTexts(i), i);
    }
    if (list.EntryCount > 0) grid.RemoveRow(list.EntryCount + 1);
}

std::vector<std::string> FrmEditMaterialList::RowTexts(int row) const {
    MaterialListEntry& entry = TheMaterialList().Entry(row);
    return {
        std::to_string(row), text::CleanText(entry.MaterialType),
        text::CleanText(entry.ProcessName),
        Shared().MaterialListSource == kSystemDefaults ? "" : text::ShownNumber(entry.Thickness)};
}

// Whether the current row shows an entry; the blank row of an empty list does not.
bool FrmEditMaterialList::OnEntry() const {
    return grdMaterialList.Row() >= 1 && grdMaterialList.Row() <= TheMaterialList().EntryCount;
}

// Makes a cell current from code. What belongs to a change of the current cell is done even where
// its numbers stay the same: its row may show another entry now.
void FrmEditMaterialList::MakeCurrent(int row, int column) {
    grdMaterialList.SetCell(row, column, views::Grid::Handlers::kNone);
    CellChanged();
}

void FrmEditMaterialList::CellChanged() {
    DropRow();
    if (grdMaterialList.Row() < 1) return;
    KeepRowInView();
    ShowEditor();
}

void FrmEditMaterialList::KeepRowInView() {
    views::Grid& grid = grdMaterialList;
    if (TheMaterialList().EntryCount < 1 || grid.Rows() <= 6) return;
    if (grid.TopRow() > grid.Row() || grid.TopRow() <= grid.Row() - 5) grid.SetTopRow(grid.Row());
}

// Shows the editor of the current column with the cell's text in it.
void FrmEditMaterialList::ShowEditor() {
    const int column = TheMaterialList().EntryCount > 0 ? grdMaterialList.Column() : 0;
    const bool thickness =
        column == kThicknessColumn && Shared().MaterialListSource != kSystemDefaults;
    const std::pair<views::Control*, bool> editors[] = {
        {&cboEditDataType, column == kTypeColumn},
        {&cboEditDataProcess, column == kProcessColumn},
        {&txtSpinText, thickness},
        {&spinButton, thickness},
    };
    for (const auto& [editor, shown] : editors) {
        // Hidden with the focus, it would pass it on to whatever comes next in the window, while
        // the operator goes on in the grid.
        if (!shown && editor->HasFocus()) grdMaterialList.SetFocus();
        editor->SetVisible(shown);
    }
    const std::string text = grdMaterialList.CurrentText();
    if (column == kTypeColumn) cboEditDataType.SetText(text);
    if (column == kProcessColumn) cboEditDataProcess.SetText(text);
    if (thickness) txtSpinText.SetText(text);
}

// Selects the current cell; an edit that is pending in another one is committed first.
void FrmEditMaterialList::SelectCell() {
    if (TheMaterialList().EntryCount < 1) return;
    views::Grid& grid = grdMaterialList;
    if (grid.Row() < 1 || grid.Column() < 1) {
        MakeCurrent(std::max(grid.Row(), 1), std::max(grid.Column(), 1));
    }
    const int row = grid.Row();
    const int column = grid.Column();
    if (EditState == kEditPending && !IsPending(row, column)) CommitPending();
    grid.SetHighlight(true);
    grid.SelectBlock({row, column, row, column});
    DropRow();
    SelRow = row;
    SelCol = column;
    EditState = kCellSelected;
}

// Commits the cell in which an edit is pending; the current cell stays.
void FrmEditMaterialList::CommitPending() {
    const int row = grdMaterialList.Row();
    const int column = grdMaterialList.Column();
    grdMaterialList.SetCell(EditRow, EditCol, views::Grid::Handlers::kNone);
    CommitCell();
    // Committing may have put the thickness of the other row into the thickness editor.
    MakeCurrent(row, column);
}

// Whatever selects a single cell ends the selection of a row.
void FrmEditMaterialList::DropRow() {
    cmdCopy.SetEnabled(false);
    cmdDelete.SetEnabled(false);
}

// A double click selects the whole row, for Copy and Delete.
void FrmEditMaterialList::SelectRow() {
    const int count = TheMaterialList().EntryCount;
    if (count < 1) return;
    views::Grid& grid = grdMaterialList;
    if (count < MaxMaterialListEntries) cmdCopy.SetEnabled(true);
    grid.SetHighlight(true);
    grid.SelectBlock({grid.Row(), 1, grid.Row(), 3});
    cmdDelete.SetEnabled(DeleteAllowed);
}

// Turns the text of the current cell into a value of the tables: the first code or process that
// begins with it, or the first of all. Without any the cell stays as it is.
void FrmEditMaterialList::CommitCell() {
    if (!OnEntry()) return;
    const std::string text = grdMaterialList.CurrentText();
    switch (grdMaterialList.Column()) {
        case kTypeColumn: {
            const auto codes = TypeCodes();
            if (!codes.empty()) StoreCell(codes[NumberBeginningWith(codes, text) - 1]);
            break;
        }
        case kProcessColumn: {
            const auto names = ProcessNames();
            const int number = NumberBeginningWith(names, text);
            process::Shared().CurrentProcess = static_cast<std::int16_t>(number);
            if (!names.empty()) StoreCell(names[number - 1]);
            // Another process has another range of thicknesses.
            const int row = grdMaterialList.Row();
            grdMaterialList.SetCell(row, kThicknessColumn, views::Grid::Handlers::kNone);
            ValidateThickness();
            grdMaterialList.SetCell(row, kProcessColumn, views::Grid::Handlers::kNone);
            break;
        }
        case kThicknessColumn:
            ValidateThickness();
            break;
        default:
            break;
    }
}

// Limits the thickness of the current row to the range of its process. The thickness cell is
// current, as the change of the thickness editor goes into the current cell.
void FrmEditMaterialList::ValidateThickness() {
    if (Shared().MaterialListSource == kSystemDefaults || !OnEntry()) return;
    const int row = grdMaterialList.Row();
    MaterialListEntry& entry = TheMaterialList().Entry(row);
    const int number = NumberOfProcess(entry.ProcessName.View());
    process::Shared().CurrentProcess = static_cast<std::int16_t>(number);
    if (!IsProcess(number)) return;
    const float thickness = Limited(entry.Thickness, number);
    const std::string text = text::ShownNumber(thickness);
    grdMaterialList.SetText(row, kThicknessColumn, text);
    txtSpinText.SetText(text);
    // The last, as the text has fewer digits than the thickness may have.
    entry.Thickness = thickness;
}

// Keeps a cell on the entries; the row of an empty list becomes 0.
void FrmEditMaterialList::ClampCell(int& row, int& column) const {
    if (grdMaterialList.Rows() < 2) return;
    column = std::clamp(column, 1, 3);
    const int count = TheMaterialList().EntryCount;
    if (row > count) {
        row = count;
    } else if (row < 1) {
        row = 1;
    }
}

// Puts a text into the current cell and into its entry.
void FrmEditMaterialList::StoreCell(std::string_view value) {
    if (!OnEntry()) return;
    grdMaterialList.SetCurrentText(value);
    MaterialListEntry& entry = TheMaterialList().Entry(grdMaterialList.Row());
    switch (grdMaterialList.Column()) {
        case kTypeColumn:
            entry.MaterialType = value;
            break;
        case kProcessColumn:
            entry.ProcessName = value;
            break;
        case kThicknessColumn:
            entry.Thickness = text::ToSingle(value);
            break;
        default:
            break;
    }
}

}  // namespace materiallist
