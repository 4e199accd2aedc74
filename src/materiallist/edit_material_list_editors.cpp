// Typing: in the editors below the grid and in the grid itself.
#include "materiallist/edit_material_list.h"
#include "text/clean_text.h"
#include "text/numbers.h"
#include "views/view_procedures.h"

namespace materiallist {

void FrmEditMaterialList::BindEditors() {
    views::Grid& grid = grdMaterialList;
    grid.onClick = [this] { SelectCell(); };
    grid.onRowClick = [this] { SelectCell(); };
    grid.onDoubleClick = [this] { SelectRow(); };
    grid.onCurrentCellChange = [this] { CellChanged(); };
    grid.onMouseDown = [this] { grdMaterialList.SetHighlight(false); };
    grid.onMouseUp = [this] { grdMaterialList.SetHighlight(true); };
    grid.onKeyDown = [this](views::KeyEvent& event) { GridKeyDown(event); };
    grid.onKeyPress = [this](views::CharEvent& event) { GridKeyPress(event.character); };

    BindCombo(cboEditDataType);
    BindCombo(cboEditDataProcess);
    cboEditDataType.onGotFocus = [this] { EnterEditor(cboEditDataType); };
    // Unlike the type's: being in the process of an entry is enough to be asked about saving.
    cboEditDataProcess.onGotFocus = [this] {
        EnterEditor(cboEditDataProcess);
        Shared().MaterialListChanged = true;
    };

    txtSpinText.onGotFocus = [this] { EnterEditor(txtSpinText); };
    txtSpinText.onChange = [this] { EditorChanged(txtSpinText); };
    txtSpinText.onKeyPress = [this](views::CharEvent&) { ThicknessKeyPress(); };
    txtSpinText.onKeyDown = [this](views::KeyEvent& event) { ThicknessKeyDown(event); };
    spinButton.onSpinDown = [this] { SpinThickness(-1); };
    spinButton.onSpinUp = [this] { SpinThickness(1); };
}

void FrmEditMaterialList::BindCombo(views::ComboBox& combo) {
    combo.onChange = [this, &combo] { EditorChanged(combo); };
    combo.onClick = [this, &combo] {
        EditorChanged(combo);
        Shared().MaterialListChanged = true;
    };
    combo.onKeyPress = [](views::CharEvent&) { Shared().MaterialListChanged = true; };
    combo.onKeyDown = [this](views::KeyEvent& event) {
        Shared().MaterialListChanged = true;
        if (event.key != views::kKeyEnter) return;
        CommitCell();
        LeaveEditor(event);
    };
}

// From here on an edit is pending in the current cell.
void FrmEditMaterialList::BeginEdit() {
    EditRow = grdMaterialList.Row();
    EditCol = grdMaterialList.Column();
    EditState = kEditPending;
}

bool FrmEditMaterialList::IsPending(int row, int column) const {
    return EditState == kEditPending && EditRow == row && EditCol == column;
}

void FrmEditMaterialList::EnterEditor(views::TextPart& editor) {
    BeginEdit();
    editor.SetText(grdMaterialList.CurrentText());
    editor.SelectAll();
}

// The current cell follows its editor. The window itself only ever copies the cell into the editor,
// so where they differ the operator has changed the text, be it without any key (pasted by mouse).
void FrmEditMaterialList::EditorChanged(const views::TextPart& editor) {
    if (editor.Text() != grdMaterialList.CurrentText()) Shared().MaterialListChanged = true;
    StoreCell(editor.Text());
}

// A key leads from the editor to another cell of the grid.
void FrmEditMaterialList::LeaveEditor(views::KeyEvent& event) {
    int row = grdMaterialList.Row();
    int column = grdMaterialList.Column();
    views::NavigateCell(event.key, event.shift, event.handled, row, column,
                        grdMaterialList.Rows() - 1, grdMaterialList.Columns() - 1, 1);
    ClampCell(row, column);
    MakeCurrent(row, column);
    SelectCell();
    grdMaterialList.SetFocus();
}

void FrmEditMaterialList::ThicknessKeyDown(views::KeyEvent& event) {
    Shared().MaterialListChanged = true;
    switch (event.key) {
        case views::kKeyDown:
        case views::kKeyEnter:
        case views::kKeyTab:
        case views::kKeyUp:
            // Before the move, which may lead back to this cell.
            CommitCell();
            LeaveEditor(event);
            break;
        default:
            break;
    }
}

// The key at hand comes in addition to what is left of the text.
void FrmEditMaterialList::ThicknessKeyPress() {
    constexpr std::size_t kLongest = 13;
    Shared().MaterialListChanged = true;
    if (txtSpinText.Text().size() <= kLongest) return;
    txtSpinText.SetText(txtSpinText.Text().substr(0, kLongest));
    txtSpinText.Select(kLongest, 0);
}

void FrmEditMaterialList::SpinThickness(int step) {
    Shared().MaterialListChanged = true;
    txtSpinText.SetText(text::NumberText(text::ToSingle(text::Val(txtSpinText.Text()) + step)));
    ValidateThickness();
    txtSpinText.SelectAll();
}

void FrmEditMaterialList::GridKeyDown(views::KeyEvent& event) {
    const bool arrow = event.key >= views::kKeyLeft && event.key <= views::kKeyDown;
    if (!arrow && event.key != views::kKeyTab && event.key != views::kKeyEnter) {
        // Home, End and the page keys leave the cell by the grid's own movement.
        const bool leaves = event.key >= views::kKeyPageUp && event.key <= views::kKeyHome;
        if (!leaves || event.shift != 0) return;
        if (IsPending(grdMaterialList.Row(), grdMaterialList.Column())) {
            CommitCell();
            ShowEditor();
        }
        DropRow();
        return;
    }
    BeginEdit();
    CommitCell();
    int row = grdMaterialList.Row();
    int column = grdMaterialList.Column();
    bool handled = false;
    views::NavigateCell(event.key, event.shift, handled, row, column, TheMaterialList().EntryCount,
                        kThicknessColumn, 0);
    ClampCell(row, column);
    MakeCurrent(row, column);  // selects it too
    grdMaterialList.SetHighlight(true);
    // Plain arrow keys are the grid's own movement.
    event.handled = !arrow || event.shift != 0;
}

// The first character replaces the text of the cell, the next ones are added to it.
void FrmEditMaterialList::GridKeyPress(char character) {
    views::Grid& grid = grdMaterialList;
    const int row = grid.Row();
    const int column = grid.Column();
    const bool backspace = character == views::kKeyBackspace;
    if (TheMaterialList().EntryCount == 0 && grid.Rows() == 2) return;
    if (column == kThicknessColumn && Shared().MaterialListSource == kSystemDefaults) return;
    if (!backspace && !text::IsPrintableChar({&character, 1})) return;

    const bool begins = EditState == kNothingPending ||
                        (EditState == kEditPending && !IsPending(row, column)) ||
                        (EditState == kCellSelected && (SelRow == row || SelCol == column));
    std::string text = begins ? std::string() : grid.CurrentText();
    if (!backspace) {
        text += character;
    } else if (!text.empty()) {
        text.pop_back();
    }
    // By the column last selected, whatever the keyboard has moved to since.
    const std::size_t longest = SelCol == kTypeColumn      ? 32
                                : SelCol == kProcessColumn ? 64
                                                           : text.size();
    if (text.size() > longest) text.resize(longest);

    Shared().MaterialListChanged = true;
    BeginEdit();
    StoreCell(text);
    if (column == kTypeColumn) cboEditDataType.SetText(text);
    if (column == kProcessColumn) cboEditDataProcess.SetText(text);
    if (column == kThicknessColumn) txtSpinText.SetText(text);
}

}  // namespace materiallist
