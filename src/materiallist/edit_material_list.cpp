#include "materiallist/edit_material_list.h"

#include "app/system_config.h"
#include "errors/errors.h"
#include "materiallist/enter_thickness.h"
#include "materiallist/entry_values.h"
#include "materiallist/nest_options.h"
#include "platform/files.h"
#include "text/numbers.h"
#include "text/strings.h"
#include "views/application.h"
#include "views/grid_cells.h"
#include "views/screen.h"

namespace materiallist {
namespace {

const std::string kSaveTitle = "Save Material List file";

bool HoldsFiles(const std::string& directory) {
    return !platform::Dir(directory + "\\*.*", platform::DirKinds::kFiles).empty();
}

bool IsFull() {
    return TheMaterialList().EntryCount >= MaxMaterialListEntries;
}

}  // namespace

FrmEditMaterialList::FrmEditMaterialList()
    : Form("frmEditMaterialList", "Edit Material List"),
      editor(grdMaterialList, cboEditDataType, cboEditDataProcess, txtSpinText, spinButton,
             [this](bool selected) { RowSelected(selected); }) {
    resizable = true;
    closeButton = &cmdClose;
    txtMinPlateThickness.SetText("50");
    Arrange();
    BindCommands();
}

void FrmEditMaterialList::Arrange() {
    txtMinPlateThickness.widthHint = 8;
    grdMaterialList.spokenName = "Material list";
    cboEditDataType.spokenName = "Material";
    cboEditDataProcess.spokenName = "Process";
    txtSpinText.spokenName = "Thickness";
    spinButton.spokenName = "Thickness steps";
    using namespace views;
    SetLayout(Column({
        Grow(grdMaterialList),
        Framed(Frame1, Row({Grow(cboEditDataType), Grow(cboEditDataProcess),
                            Grow(Row({Grow(txtSpinText), spinButton}))})),
        Row({cmdAdd, cmdCopy, cmdPaste, cmdDelete, Stretch(), cmdClose}),
        Row({Column({chkAllowKerfCompensated, chkNestClearanceCheck, chkTracePlate}), Stretch(),
             Framed(Frame2, Column({chkPrePierceEnabled, Row({Label1, txtMinPlateThickness})}))}),
    }));
}

void FrmEditMaterialList::BindCommands() {
    cmdAdd.onClick = [this] { AddClick(); };
    cmdCopy.onClick = [this] { CopyClick(); };
    cmdPaste.onClick = [this] { PasteClick(); };
    cmdDelete.onClick = [this] { DeleteClick(); };
    cmdClose.onClick = [this] { CloseClick(); };
    const auto optionChanged = [] { Shared().NestOptionsChanged = true; };
    chkAllowKerfCompensated.onClick = optionChanged;
    chkNestClearanceCheck.onClick = optionChanged;
    chkTracePlate.onClick = optionChanged;
    chkPrePierceEnabled.onClick = [this] {
        Shared().NestOptionsChanged = true;
        txtMinPlateThickness.SetEnabled(chkPrePierceEnabled.Value());
    };
    txtMinPlateThickness.onChange = optionChanged;
}

void FrmEditMaterialList::Load() {
    ShowOptions();
    // Only now: showing the options counts as a change of them.
    Shared().NestOptionsChanged = false;
    Shared().MaterialListChanged = false;
    DeleteAllowed = true;
    if (Shared().MaterialListSource == kSystemDefaults) {
        spinButton.SetVisible(false);
        txtSpinText.SetVisible(false);
        txtSpinText.SetEnabled(false);
    } else if (Shared().MaterialListSource == kNewDirectory) {
        FrmEnterThickness prompt;
        views::ShowModal(prompt);
    } else {
        DeleteAllowed = !HoldsFiles(Shared().MaterialListDirPath + "\\COMP") &&
                        !HoldsFiles(Shared().MaterialListDirPath + "\\NEST");
    }
    SetCaption("Edit " + text::LowerCase(MaterialListPath(Shared().MaterialListSource)) + " List");

    FillMaterialGrid();
    FillEditorLists();
    editor.Start();  // disables Copy and Delete
    cmdPaste.SetEnabled(false);
}

void FrmEditMaterialList::ShowOptions() {
    ReadNestOptions(app::TheConfig().UserDir());
    const NestOptions& options = TheNestOptions();
    chkAllowKerfCompensated.SetValue(options.AllowKerfProg != 0);
    chkNestClearanceCheck.SetValue(options.NestCheck != 0);
    chkTracePlate.SetValue(options.TracePlateOutline != 0);
    chkPrePierceEnabled.SetValue(options.PrePiercingEnabled != 0);
    txtMinPlateThickness.SetText(text::ShownNumber(options.PrePiercingThickness));
    txtMinPlateThickness.SetEnabled(chkPrePierceEnabled.Value());
}

void FrmEditMaterialList::FillMaterialGrid() {
    auto& grid = grdMaterialList;
    grid.SetShape(2, 4, 1, 1);
    grid.SetRowHeight(0, grid.Height() / 4);
    const char* const headings[] = {"Index", "Material Type Code", "Process Name",
                                    "Thickness (mm)"};
    for (int column = 0; column < grid.Columns(); ++column) {
        grid.SetText(0, column, headings[column]);
        grid.SetColumnWidth(column, column == 0 ? grid.Width() / 8 : (grid.Width() + 500) / 4);
    }
    grid.SetNumberColumn(0);
    grid.SetNumberColumn(3);

    MaterialListTable& list = TheMaterialList();
    for (int i = 1; i <= list.EntryCount; ++i) {
        // The thicknesses of a process may have been edited since the list was saved. Following
        // them is no change that the operator is asked to save.
        if (Shared().MaterialListSource != kSystemDefaults) LimitThickness(list.Entry(i));
        views::InsertDataRow(grid, EntryTexts(i), i, i - 1);
    }
}

void FrmEditMaterialList::FillEditorLists() {
    cboEditDataType.Clear();
    cboEditDataProcess.Clear();
    for (const std::string& code : TypeCodes()) cboEditDataType.AddItem(code);
    for (const std::string& name : ProcessNames()) cboEditDataProcess.AddItem(name);
}

void FrmEditMaterialList::RowSelected(bool selected) {
    cmdCopy.SetEnabled(selected && !IsFull());
    cmdDelete.SetEnabled(selected && DeleteAllowed);
}

void FrmEditMaterialList::AddClick() {
    if (!IsFull()) return Append(FirstValues());
    cmdAdd.SetEnabled(false);
    grdMaterialList.SetFocus();
}

// Copy enables Paste below the limit, and Paste relies on being disabled there.
void FrmEditMaterialList::Append(const MaterialListEntry& entry) {
    editor.Append(entry);
    if (IsFull()) cmdPaste.SetEnabled(false);
}

// A single entry is not worth copying: Copy refuses it and switches Paste off.
void FrmEditMaterialList::CopyClick() {
    if (TheMaterialList().EntryCount <= 1 || IsFull()) {
        cmdCopy.SetEnabled(false);
        cmdPaste.SetEnabled(false);
        return;
    }
    const MaterialListEntry& entry = TheMaterialList().Entry(grdMaterialList.Row());
    CopiedType = entry.MaterialType;
    CopiedProcess = entry.ProcessName;
    CopiedThickness = entry.Thickness;
    cmdPaste.SetEnabled(true);
}

void FrmEditMaterialList::PasteClick() {
    Append({CopiedType, CopiedProcess, CopiedThickness});
    if (IsFull()) cmdAdd.SetEnabled(false);
}

void FrmEditMaterialList::DeleteClick() {
    if (TheMaterialList().EntryCount < 1) {
        cmdDelete.SetEnabled(false);
        return;
    }
    grdMaterialList.SetHighlight(false);
    cmdCopy.SetEnabled(false);
    if (!views::AskYesNo(
            "     Delete Data Index" + text::Str(grdMaterialList.Row()) + "\r      Are You Sure ?",
            "Deleting Processing data")) {
        return;
    }
    editor.RemoveCurrent();  // disables Delete
    cmdAdd.SetEnabled(true);
}

void FrmEditMaterialList::CloseClick() {
    // As when its cell is left: a half-typed code would name nothing, and an empty one would end
    // the list when it is loaded again.
    editor.CommitPending();
    if ((Shared().NestOptionsChanged || Shared().MaterialListChanged) &&
        views::AskYesNo("         Save Changes ?", kSaveTitle) && !Save()) {
        return;
    }
    Close();
}

// False, after a message, when the list cannot be written: its old file is intact then.
bool FrmEditMaterialList::Save() {
    if (Shared().MaterialListChanged) {
        try {
            WriteMaterialList(Shared().MaterialListSource);
        } catch (const errors::FileError& failure) {
            views::ShowWarning(failure.what(), kSaveTitle);
            return false;
        }
    }
    if (Shared().NestOptionsChanged) {
        NestOptions& options = TheNestOptions();
        options.AllowKerfProg = chkAllowKerfCompensated.Value() ? 1 : 0;
        options.NestCheck = chkNestClearanceCheck.Value() ? 1 : 0;
        options.TracePlateOutline = chkTracePlate.Value() ? 1 : 0;
        options.PrePiercingEnabled = chkPrePierceEnabled.Value() ? 1 : 0;
        options.PrePiercingThickness = text::ToSingle(txtMinPlateThickness.Text());
        try {
            WriteNestOptions(app::TheConfig().UserDir());
        } catch (const errors::FileError&) {
            // As it always was: a profile that cannot be written keeps the old options.
        }
    }
    return true;
}

}  // namespace materiallist
