#include "process/thickness_data.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "process/add_thickness.h"
#include "process/process_table.h"
#include "text/numbers.h"
#include "views/application.h"

namespace process {
namespace {

constexpr std::size_t kNumberLength = 13;

struct CellField {
    const char* heading;
    float ThicknessRow::* field;
};
constexpr std::array<CellField, 5> kColumns{{
    {"Thickness         (mm)", &ThicknessRow::Thickness},
    {"Pierce Time (secs)", &ThicknessRow::PierceTime},
    {"Feed Rate (mm/min)", &ThicknessRow::Feedrate},
    {"Leadin Length (mm)", &ThicknessRow::DefaultLeadin},
    {"Nozzle Size (mm)", &ThicknessRow::NozzleSize},
}};

ProcessRecord& TheProcess() {
    return TheProcesses().Process(Shared().CurrentProcess);
}

bool IsTyped(char character) {
    return IsDigitsAndPoints({&character, 1});
}

// The last process of the table decides for all of them; that the current one has no more room
// either is what the table itself asks for.
bool IsFull() {
    const auto& table = TheProcesses();
    return table.Process(table.ProcessCount).ThicknessCount >= MaxThicknessRows ||
           TheProcess().ThicknessCount >= MaxThicknessRows;
}

}  // namespace

bool IsDigitsAndPoints(std::string_view text) {
    return text.find_first_not_of("0123456789.") == std::string_view::npos;
}

FrmThicknessData::FrmThicknessData()
    : Form("frmThicknessData", "Thickness Data"),
      editor_(grdThicknessData, txtEditData, cmdThkDel,
              {.count = [] { return TheProcess().ThicknessCount; },
               .firstNumberColumn = 1,
               .numberLength = kNumberLength,
               .accepts = IsTyped,
               .tidiesGrid = false,
               .edited = [this] { changed_ = true; }}) {
    resizable = true;
    closeButton = &cmdThkClose;
    grdThicknessData.spokenName = "Thicknesses";

    using namespace views;
    SetLayout(Column({
        Grow(grdThicknessData),
        Framed(Frame1, txtEditData),
        Row({cmdThkAdd, cmdThkDel, Stretch(), cmdThkClose}),
    }));

    cmdThkAdd.onClick = [this] { AddClick(); };
    cmdThkDel.onClick = [this] { DeleteClick(); };
    cmdThkClose.onClick = [this] { CloseClick(); };
}

void FrmThicknessData::Load() {
    FillThicknessGrid();
    cmdThkDel.SetEnabled(false);
    editor_.Start();
    editor_.EnterCell();
    changed_ = false;
}

void FrmThicknessData::FillThicknessGrid() {
    const ProcessRecord& process = TheProcess();
    SetCaption("Thickness Data for Process " + std::string(process.Name.View()));
    auto& grid = grdThicknessData;
    grid.SetShape(std::max<int>(process.ThicknessCount, 1) + 1, kColumns.size(), 1, 1);
    grid.SetRowHeight(0, grid.Height() / 6);
    const int columnWidth = static_cast<int>(std::lround((grid.Width() - 400) / 5.0));
    for (int column = 0; column < grid.Columns(); ++column) {
        const auto [heading, field] = kColumns[static_cast<std::size_t>(column)];
        grid.SetColumnWidth(column, columnWidth);
        grid.SetNumberColumn(column);
        grid.SetText(0, column, heading);
        for (int row = 1; row <= process.ThicknessCount; ++row) {
            const float value = process.Row(row).*field;
            grid.SetText(row, column, text::ShownNumber(value));
        }
    }
}

void FrmThicknessData::AddClick() {
    if (!IsFull()) {
        FrmAddThickness dialog(editor_);
        views::ShowModal(dialog);
        changed_ = true;  // after Cancel, too
        editor_.CellChanged();
    }
    grdThicknessData.SetFocus();  // where the values of a new thickness are typed
    if (IsFull()) cmdThkAdd.SetEnabled(false);
}

void FrmThicknessData::DeleteClick() {
    ProcessRecord& process = TheProcess();
    if (process.ThicknessCount == 0) return;
    editor_.RemoveCurrentRow();
    grdThicknessData.SetFocus();  // not on to Close
    cmdThkDel.SetEnabled(false);
    grdThicknessData.SetHighlight(false);
    --process.ThicknessCount;
    changed_ = true;
    editor_.CellChanged();
}

void FrmThicknessData::CloseClick() {
    if (changed_) CopyBack();
    Close();
}

void FrmThicknessData::CopyBack() {
    ProcessRecord& process = TheProcess();
    for (int row = 1; row <= process.ThicknessCount; ++row) {
        for (int column = 0; column < grdThicknessData.Columns(); ++column) {
            process.Row(row).*kColumns[static_cast<std::size_t>(column)].field =
                text::ToSingle(grdThicknessData.Text(row, column));
        }
    }
    Shared().ProcessChanged = true;
}

}  // namespace process
