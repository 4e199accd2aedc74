#include "materialtypes/edit_material_types.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "app/system_config.h"
#include "errors/errors.h"
#include "materialtypes/add_material_types.h"
#include "materialtypes/material_type_table.h"
#include "text/clean_text.h"
#include "text/numbers.h"
#include "views/application.h"
#include "views/screen.h"

namespace materialtypes {
namespace {

const std::string kLoadTitle = "Error in loading MATTYPES.DAT";

constexpr int kCode = 0, kDescription = 1, kDensity = 2;
constexpr std::size_t kDensityLength = 10;

bool IsTyped(char character) {
    return character >= 32 && character <= 126;
}

std::string InSystemDirectory() {
    return "\rin " + app::TheConfig().UpperSystemDir() + "\\";
}

// Unlike in a cell that is left, a negative density is shown as it is.
std::string ShownDensity(float density) {
    return density < 0 ? text::NumberText(density) : text::ShownNumber(density);
}

}  // namespace

FrmEditMaterialTypes::FrmEditMaterialTypes()
    : Form("frmEditMaterialTypes", "Edit Material Types"),
      editor_(grdMaterialTypes, txtEditData, cmdDelete,
              {.count = [] { return TheMaterialTypes().Count; },
               .firstNumberColumn = kDensity,
               .numberLength = kDensityLength,
               .accepts = IsTyped,
               .tidiesGrid = true,
               .edited = [] { Shared().MaterialTypesChanged = true; }}) {
    resizable = true;
    closeButton = &cmdClose;
    grdMaterialTypes.spokenName = "Material types";

    using namespace views;
    SetLayout(Column({
        Grow(grdMaterialTypes),
        Framed(Frame1, txtEditData),
        Row({cmdAdd, cmdDelete, Stretch(), cmdClose}),
    }));

    cmdAdd.onClick = [this] { AddClick(); };
    cmdDelete.onClick = [this] { DeleteClick(); };
    // So that a type is chosen afresh for every delete.
    cmdDelete.onLostFocus = [this] { cmdDelete.SetEnabled(false); };
    cmdClose.onClick = [this] { CloseClick(); };
}

void FrmEditMaterialTypes::Load() {
    try {
        if (!ReadMaterialTypes()) {
            views::TheScreen().Beep();
            views::ShowWarning("File MATTYPES.DAT not found" + InSystemDirectory(), kLoadTitle);
        }
    } catch (const errors::Error& failure) {
        views::ShowWarning(failure.what(), kLoadTitle);
        Close();
        return;
    }
    FillMaterialTypesGrid();
    cmdDelete.SetEnabled(false);
    editor_.Start();
    Shared().MaterialTypesChanged = false;
}

void FrmEditMaterialTypes::FillMaterialTypesGrid() {
    auto& table = TheMaterialTypes();
    auto& grid = grdMaterialTypes;
    grid.SetShape(std::max<int>(table.Count, 1) + 1, 3, 1, 1);
    grid.SetRowHeight(0, grid.Height() / 5);
    const double room = grid.Width() - 400;
    grid.SetColumnWidth(kCode, static_cast<int>(std::lround(room / 6)));
    grid.SetColumnWidth(kDescription, static_cast<int>(std::lround(room / 3)));
    grid.SetColumnWidth(kDensity, static_cast<int>(std::lround(room / 6)));
    grid.SetNumberColumn(kDensity);
    grid.SetText(0, kCode, "Code");
    grid.SetText(0, kDescription, "Description");
    grid.SetText(0, kDensity, "Density");
    for (int row = 1; row <= table.Count; ++row) {
        MaterialTypeRecord& record = table.Record(row);
        const std::string code = text::CleanText(record.Code);
        const std::string description = text::CleanText(record.Description);
        record.Code = code;
        record.Description = description;
        grid.SetText(row, kCode, code);
        grid.SetText(row, kDescription, description);
        grid.SetText(row, kDensity, ShownDensity(record.Density));
    }
}

void FrmEditMaterialTypes::AddClick() {
    if (TheMaterialTypes().Count == MaxMaterialTypes) {
        grdMaterialTypes.SetFocus();  // not on to Delete, where the next key would go
        cmdAdd.SetEnabled(false);
        views::TheScreen().Beep();
        views::ShowWarning("No memory space to add", "Error in adding");
        return;
    }
    const int before = TheMaterialTypes().Count;
    FrmAddMaterialTypes dialog(editor_);
    views::ShowModal(dialog);
    // The description of a new type can be typed at once.
    if (TheMaterialTypes().Count > before) grdMaterialTypes.SetFocus();
    editor_.EnterCell(TheMaterialTypes().Count, 1);
}

void FrmEditMaterialTypes::DeleteClick() {
    auto& table = TheMaterialTypes();
    if (table.Count == 0) return;
    const int column = grdMaterialTypes.Column();
    const std::string code = grdMaterialTypes.Text(grdMaterialTypes.Row(), kCode);
    if (!views::AskYesNo("    Delete Material Type Code : \r\r" + std::string(19, ' ') + code +
                             "\r\r      If you delete this material, any \r"
                             "Reference to this will become INVALID\r\r"
                             "                Are you Sure ?",
                         "Deleting Material Type")) {
        return;
    }
    editor_.RemoveCurrentRow();
    Shared().MaterialTypesChanged = true;
    --table.Count;
    cmdAdd.SetEnabled(true);
    grdMaterialTypes.SetFocus();
    editor_.CellChanged();
    editor_.EnterCell(grdMaterialTypes.Row(), column);
    cmdDelete.SetEnabled(false);
}

void FrmEditMaterialTypes::CloseClick() {
    const bool save = Shared().MaterialTypesChanged &&
                      views::AskYesNo("       Save Changes ?", "Material Types Save");
    if (!save || Save()) Close();
}

// False when the file cannot be written: the edits are then still in the grid.
bool FrmEditMaterialTypes::Save() {
    auto& table = TheMaterialTypes();
    for (int row = 1; row <= table.Count; ++row) {
        MaterialTypeRecord& record = table.Record(row);
        record.Code = grdMaterialTypes.Text(row, kCode);
        record.Description = grdMaterialTypes.Text(row, kDescription);
        record.Density = text::ToSingle(grdMaterialTypes.Text(row, kDensity));
    }
    try {
        WriteMaterialTypes();
        return true;
    } catch (const errors::FileError& failure) {
        views::TheScreen().Beep();
        views::ShowWarning(
            "Error during Saving file MATTYPES.DAT" + InSystemDirectory() + "\r\r" + failure.what(),
            "Error in Saving file");
        return false;
    }
}

}  // namespace materialtypes
