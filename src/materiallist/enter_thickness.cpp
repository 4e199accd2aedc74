#include "materiallist/enter_thickness.h"

#include <string>

#include "materiallist/material_list_table.h"
#include "text/numbers.h"
#include "views/keys.h"
#include "views/screen.h"

namespace materiallist {

FrmEnterThickness::FrmEnterThickness() : Form("frmEnterThickness", "Enter Thickness  ") {
    // Wider than a thickness needs, for a caption that names the directory.
    txtInitThickness.widthHint = 24;

    using namespace views;
    SetLayout(Column({
        Fields({Label1, txtInitThickness}),
        Row({Stretch(), cmdOk, Stretch()}),
    }));

    txtInitThickness.onGotFocus = [this] { txtInitThickness.SelectAll(); };
    txtInitThickness.onKeyPress = [this](CharEvent& event) {
        if (event.character != kKeyEnter) return;
        event.handled = true;
        cmdOk.Press();
    };
    cmdOk.onClick = [this] { OkClick(); };
}

void FrmEnterThickness::Load() {
    // The whole path where it has no backslash: npos + 1 is 0.
    std::string name =
        Shared().MaterialListDirPath.substr(Shared().MaterialListDirPath.rfind('\\') + 1);
    if (!name.empty()) {
        SetCaption(Caption() + "for " + name + " Directory");
        // One letter in front of the thickness is usual: P10.
        if (name[0] < '1' || name[0] > '9') name.erase(0, 1);
    }
    txtInitThickness.Select(1, 0);
    const float proposed = text::ToSingle(name);
    if (proposed > 0) {
        txtInitThickness.SetText(text::NumberText(proposed));
        txtInitThickness.Select(txtInitThickness.SelStart(), txtInitThickness.Text().size());
    }
}

void FrmEnterThickness::OkClick() {
    const float thickness = text::ToSingle(txtInitThickness.Text());
    if (thickness <= 0) {
        views::ShowWarning("Thickness must be bigger than 0", "Error in Thickness");
        txtInitThickness.SetFocus();
        return;
    }
    MaterialListTable& list = TheMaterialList();
    for (int i = 1; i <= list.EntryCount; ++i) list.Entry(i).Thickness = thickness;
    Shared().MaterialListChanged = true;
    Close();
}

}  // namespace materiallist
