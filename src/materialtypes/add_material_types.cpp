#include "materialtypes/add_material_types.h"

#include <string>

#include "materialtypes/material_type_table.h"
#include "text/strings.h"
#include "views/keys.h"
#include "views/screen.h"

namespace materialtypes {
namespace {

constexpr std::size_t kCodeLength = 32;

void Refuse(std::string_view text, std::string_view title) {
    views::TheScreen().Beep();
    views::ShowWarning(text, title);
}

}  // namespace

FrmAddMaterialTypes::FrmAddMaterialTypes(views::GridEditor& editor)
    : Form("frmAddMaterialTypes", "Add Material Type"), editor_(editor) {
    txtAddMaterial.widthHint = kCodeLength;

    using namespace views;
    SetLayout(Column({Label1, txtAddMaterial, Row({Stretch(), cmdOK, cmdCancel})}));

    txtAddMaterial.onGotFocus = [this] { txtAddMaterial.SelectAll(); };
    txtAddMaterial.onChange = [this] {
        if (txtAddMaterial.CutTo(kCodeLength)) views::TheScreen().Beep();
    };
    txtAddMaterial.onKeyPress = [this](CharEvent& event) {
        if (event.character != kKeyEnter) return;
        event.handled = true;
        EnterPressed();
    };
    cmdOK.onClick = [this] { OkClick(); };
    cmdCancel.onClick = [this] { Close(); };
}

void FrmAddMaterialTypes::EnterPressed() {
    const std::string code(text::Trim(txtAddMaterial.Text()));
    txtAddMaterial.SetText(code);
    txtAddMaterial.Select(code.size(), 0);
    cmdOK.Press();
}

void FrmAddMaterialTypes::OkClick() {
    auto& table = TheMaterialTypes();
    const std::string code = text::UpperCase(text::Trim(txtAddMaterial.Text()));
    if (code.empty()) {
        Refuse("No Material Code Entered.", "Error in Adding New Material");
        txtAddMaterial.SelectAll();
        txtAddMaterial.SetFocus();
        return;
    }
    for (int row = 1; row <= table.Count; ++row) {
        if (text::UpperCase(editor_.Cells().Text(row, 0)) != code) continue;
        Refuse("Material Code " + code + " already exist!", "Error in Material Code");
        txtAddMaterial.SetFocus();
        return;
    }
    editor_.InsertRow({code, "", "0"}, table.Count + 1);
    ++table.Count;
    Shared().MaterialTypesChanged = true;
    Close();
}

}  // namespace materialtypes
