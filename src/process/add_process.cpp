#include "process/add_process.h"

#include <string>

#include "process/process_defaults.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "text/clean_text.h"
#include "text/numbers.h"
#include "text/strings.h"
#include "views/keys.h"
#include "views/screen.h"

namespace process {
namespace {

// Letter case included: plasma and Plasma have always been two processes here.
bool IsTaken(const std::string& name) {
    ProcessTable& table = TheProcesses();
    for (int n = 1; n <= table.ProcessCount; ++n) {
        if (text::Trim(text::CleanText(table.Process(n).Name)) == name) return true;
    }
    return false;
}

}  // namespace

FrmAddProcess::FrmAddProcess(FrmProcessDefaults& owner)
    : Form("frmAddProcess", "Add Process"), owner_(owner) {
    txtNewProcessName.widthHint = 40;
    cboCopy.widthHint = 40;
    using namespace views;
    SetLayout(Column({
        Fields({Label1, txtNewProcessName, Label2, cboCopy}),
        Row({Stretch(), cmdOk, cmdCancel}),
    }));

    txtNewProcessName.onGotFocus = [this] { txtNewProcessName.SelectAll(); };
    txtNewProcessName.onKeyPress = [this](CharEvent& event) {
        if (event.character != static_cast<char>(kKeyEnter)) return;
        event.handled = true;
        cmdOk.Press();
    };
    cmdOk.onClick = [this] { OkClick(); };
    cmdCancel.onClick = [this] { Close(); };
}

void FrmAddProcess::Load() {
    txtNewProcessName.SetText("");
    const ProcessTable& table = TheProcesses();
    for (int n = 1; n <= table.ProcessCount; ++n) cboCopy.AddItem(table.Process(n).Name.View());
    cboCopy.AddItem("None");
    cboCopy.SetListIndex(table.ProcessCount);
    ProcessAdded = false;
}

void FrmAddProcess::Refuse(const std::string& reason) {
    views::ShowWarning(reason, "Error");
    txtNewProcessName.SetFocus();
}

void FrmAddProcess::OkClick() {
    const std::string name(text::Trim(txtNewProcessName.Text()));
    constexpr int kWidth = decltype(ProcessRecord::Name)::kWidth;
    if (name.size() > kWidth) {
        views::TheScreen().Beep();
        return Refuse("Maximum size of Process name allow is" + text::Str(kWidth));
    }
    if (name.empty()) {
        views::TheScreen().Beep();
        return Refuse("No Process Name Entered");
    }
    if (IsTaken(name)) return Refuse("Process Name " + name + " already exist");

    ProcessAdded = true;
    ProcessTable& table = TheProcesses();
    const int added = ++table.ProcessCount;
    table.Process(added).Name = name;
    // Behind the processes that can be copied stands "None".
    const int copied = cboCopy.ListIndex() + 1;
    InitProcessRecord(added, copied == added ? 0 : copied);
    owner_.cmdDeleteProcess.SetEnabled(true);
    owner_.cmdThicknessData.SetEnabled(true);
    Close();
}

void FrmAddProcess::Unload() {
    if (!ProcessAdded) return;
    const ProcessTable& table = TheProcesses();
    owner_.cboProcess.AddItem(table.Process(table.ProcessCount).Name.View());
    Shared().ProcessChanged = true;
    if (table.ProcessCount == 1) owner_.cboProcess.SetListIndex(0);
}

}  // namespace process
