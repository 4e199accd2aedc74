// The window as a whole: its opening, its commands and the nesting options.
#include "materiallist/edit_material_list.h"

#include <algorithm>

#include "app/system_config.h"
#include "errors/errors.h"
#include "materiallist/enter_thickness.h"
#include "materiallist/nest_options.h"
#include "materialtypes/material_type_table.h"
#include "platform/files.h"
#include "process/process_table.h"
#include "text/numbers.h"
#include "text/strings.h"
#include "views/application.h"
#include "views/screen.h"

namespace materiallist {
namespace {

const std::string kSaveTitle = "Save Material List file";

bool HoldsFiles(const std::string& directory) {
    return !platform::Dir(directory + "\\*.*", platform::DirKinds::kFiles).empty();
}

}  // namespace

FrmEditMaterialList::FrmEditMaterialList() : Form("frmEditMaterialList", "Edit Material List") {
    resizable = true;
    firstFocus = &grdMaterialList;
    closeButton = &cmdClose;
    txtMinPlateThickness.SetText("50");
    Arrange();
    BindEditors();
    BindCommands();
}

void FrmEditMaterialList::Arrange() {
    txtMinPlateThickness.widthHint = 8;
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
    EditRow = EditCol = SelRow = SelCol = 0;
    EditState = kNothingPending;
    MakeCurrent(1, 1);
    SelectCell();
    cmdCopy.SetEnabled(false);
    cmdPaste.SetEnabled(false);
    cmdDelete.SetEnabled(false);
    FillEditorLists();
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

void FrmEditMaterialList::FillEditorLists() {
    cboEditDataType.Clear();
    cboEditDataProcess.Clear();
    const auto& types = materialtypes::TheMaterialTypes();
    const auto& processes = process::TheProcesses();
    for (int i = 0; i < types.Count; ++i) cboEditDataType.AddItem(types.Codes[i]);
    for (int i = 0; i < processes.ProcessCount; ++i) {
        cboEditDataProcess.AddItem(processes.ProcessNames[i]);
    }
}

void FrmEditMaterialList::AddClick() {
    if (TheMaterialList().EntryCount >= MaxMaterialListEntries) {
        cmdAdd.SetEnabled(false);
        grdMaterialList.SetFocus();
        return;
    }
    // Without types or processes the entry begins with empty texts.
    const auto& types = materialtypes::TheMaterialTypes();
    const auto& processes = process::TheProcesses();
    MaterialListEntry entry;
    if (types.Count > 0) entry.MaterialType = types.Codes[0];
    if (processes.ProcessCount > 0) {
        entry.ProcessName = processes.ProcessNames[0];
        entry.Thickness = processes.ProcessThicknessMin[0];
    }
    Append(entry);
    // Copy enabled it below the limit, and Paste relies on being disabled there.
    if (TheMaterialList().EntryCount == MaxMaterialListEntries) cmdPaste.SetEnabled(false);
    Shared().MaterialListChanged = true;
    MakeCurrent(TheMaterialList().EntryCount, kTypeColumn);
    SelectCell();
    grdMaterialList.SetFocus();
}

// A single entry is not worth copying: Copy refuses it and switches Paste off.
void FrmEditMaterialList::CopyClick() {
    const int count = TheMaterialList().EntryCount;
    if (count <= 1 || count >= MaxMaterialListEntries) {
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
    if (TheMaterialList().EntryCount >= MaxMaterialListEntries) {
        cmdPaste.SetEnabled(false);
        cmdAdd.SetEnabled(false);
    }
    MakeCurrent(TheMaterialList().EntryCount, kTypeColumn);
    SelectCell();
    Shared().MaterialListChanged = true;
    grdMaterialList.SetFocus();
}

// Puts an entry and its row at the end, in place of the blank row of an empty list.
void FrmEditMaterialList::Append(const MaterialListEntry& entry) {
    MaterialListTable& list = TheMaterialList();
    const int row = list.EntryCount + 1;
    list.Entry(row) = entry;
    if (Shared().MaterialListSource == kSystemDefaults) list.Entry(row).Thickness = 0;
    list.EntryCount = static_cast<std::int16_t>(row);
    grdMaterialList.AddRow(RowTexts(row), row);
    if (row == 1) grdMaterialList.RemoveRow(2);
}

void FrmEditMaterialList::DeleteClick() {
    if (TheMaterialList().EntryCount < 1) {
        cmdDelete.SetEnabled(false);
        return;
    }
    grdMaterialList.SetHighlight(false);
    const int row = grdMaterialList.Row();
    const int column = grdMaterialList.Column();
    cmdCopy.SetEnabled(false);
    if (!views::AskYesNo("     Delete Data Index" + text::Str(row) + "\r      Are You Sure ?",
                         "Deleting Processing data")) {
        return;
    }
    RemoveEntry(row);
    Shared().MaterialListChanged = true;
    cmdDelete.SetEnabled(false);
    cmdAdd.SetEnabled(true);
    MakeCurrent(std::min(row, grdMaterialList.Rows() - 1), column);
    SelectCell();
    grdMaterialList.SetFocus();
}

void FrmEditMaterialList::RemoveEntry(int row) {
    MaterialListTable& list = TheMaterialList();
    if (list.EntryCount == 1) grdMaterialList.AddRow({});
    grdMaterialList.RemoveRow(row);
    for (int i = row; i < list.EntryCount; ++i) {
        grdMaterialList.SetText(i, 0, std::to_string(i));
        list.Entry(i) = list.Entry(i + 1);
    }
    --list.EntryCount;
    // What is pending belongs to its entry, not to its row: it goes with it or moves up with it.
    if (EditRow == row && EditState == kEditPending) EditState = kNothingPending;
    if (EditRow > row) --EditRow;
}

void FrmEditMaterialList::CloseClick() {
    // As when its cell is left: a half-typed code would name nothing, and an empty one would end
    // the list when it is loaded again.
    if (EditState == kEditPending) {
        CommitPending();
        EditState = kNothingPending;
    }
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
