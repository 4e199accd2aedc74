#include "process/add_thickness.h"

#include <string>

#include "process/process_table.h"
#include "text/numbers.h"
#include "views/keys.h"
#include "views/screen.h"

namespace process {
namespace {

constexpr std::size_t kNumberLength = 13;

}  // namespace

FrmAddThickness::FrmAddThickness(views::GridEditor& editor)
    : Form("frmAddThickness", "Add New Thickness"), editor_(editor) {
    txtNewThickness.widthHint = 2 * kNumberLength;  // room for the caption of the window, too

    using namespace views;
    SetLayout(
        Column({Label1, txtNewThickness, Row({Stretch(), cmdAddNewThicknessOK, cmdANTCancel})}));

    txtNewThickness.onChange = [this] { txtNewThickness.CutTo(kNumberLength); };
    txtNewThickness.onKeyPress = [this](CharEvent& event) {
        if (event.character != kKeyEnter) return;
        event.handled = true;
        cmdAddNewThicknessOK.Press();
    };
    cmdAddNewThicknessOK.onClick = [this] { OkClick(); };
    cmdANTCancel.onClick = [this] { Close(); };
}

void FrmAddThickness::OkClick() {
    ProcessRecord& process = TheProcesses().Process(Shared().CurrentProcess);
    const float entered = text::ToSingle(txtNewThickness.Text());
    if (!(entered > 0)) return Refuse("Thickness must bigger than 0.");

    // Compared as it will be shown: what differs behind the last digit of the grid is the same.
    const std::string shown = text::ShownNumber(entered);
    const float thickness = text::ToSingle(shown);
    int row = 1;
    while (row <= process.ThicknessCount &&
           text::ToSingle(editor_.Cells().Text(row, 0)) < thickness)
        ++row;
    if (row <= process.ThicknessCount &&
        text::ToSingle(editor_.Cells().Text(row, 0)) == thickness) {
        return Refuse("Thickness" + text::Str(thickness) + " already exist.");
    }
    editor_.InsertRow({shown, "0", "0", "0", "0"}, row);
    Shared().ProcessChanged = true;
    ++process.ThicknessCount;
    Close();
}

void FrmAddThickness::Refuse(std::string_view reason) {
    views::ShowWarning(reason, "Error in Thickness Entry");
    txtNewThickness.SelectAll();
    txtNewThickness.SetFocus();
}

}  // namespace process
