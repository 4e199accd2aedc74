#include "app/sys_man.h"

#include <string>

#include "app/system_config.h"
#include "views/application.h"
#include "views/screen.h"

namespace app {
namespace {

const std::string kTitle = "Quarvel System Manager";

}  // namespace

SysMan::SysMan() : Form("SysMan", kTitle) {
    resizable = true;
    firstFocus = &lstDirectory;
    closeButton = &cmdClose;
    lstDirectory.widthHint = 32;
    lstDirectory.heightHint = 14;

    using namespace views;
    SetLayout(Column({
        Grow(
            Framed(Frame1, Grow(Column({
                               Row({lblDrive, Grow(drvList)}),
                               Row({optDesign, optProduction}),
                               Grow(Row({
                                   Grow(lstDirectory),
                                   Column({cmdMaterial, cmdCreate, cmdDelete, cmdBackup, cmdPrint}),
                               })),
                           })))),
        Framed(Frame2, Row({cmdSysMaterial, cmdSysProcess, cmdSysDefaults})),
        Row({Stretch(), cmdClose}),
    }));

    drvList.onChange = [this] { RefreshDirectoryList(*this); };
    optDesign.onClick = [this] { RefreshDirectoryList(*this); };
    optProduction.onClick = [this] { RefreshDirectoryList(*this); };
    lstDirectory.onClick = [this] { DirectoryClick(); };
    cmdDelete.onClick = [this] { DeleteClick(); };
    cmdClose.onClick = [this] { Close(); };
    tmrNotepad.onTimer = [] {};  // present for the nesting system, which counts on nothing of it
}

bool SysMan::MayAskForData() {
    if (!startingUp_) return true;
    const bool first = !askedAtStart_;
    askedAtStart_ = true;
    return first;
}

void SysMan::Load() {
    SetCaption(kTitle + " - " + std::string(VersionText));
    instance_.emplace();
    if (instance_->AnotherIsRunning()) {
        views::ShowWarning("Quarvel System Manager is already running", kTitle);
        Dismiss();  // without its Unload: nothing was read, so there is nothing to keep
        return;
    }
    LocateConfigFile();
    views::OnFailure([this] { SaveCurrentSysManDrive(*this); });
    startingUp_ = true;
    ReadSystemConfig(*this);
    lstDirectory.SetListIndex(-1);
    optDesign.SetValue(true);
    startingUp_ = false;
}

void SysMan::Unload() {
    SaveCurrentSysManDrive(*this);
    views::EndApplication(0);
}

void SysMan::DirectoryClick() {
    cmdDelete.SetEnabled(true);
    cmdPrint.SetEnabled(true);
    // Design directories have no material list.
    cmdMaterial.SetEnabled(optProduction.Value());
}

void SysMan::DeleteClick() {
    const std::string name = lstDirectory.SelectedText();
    const std::string question = " sure you want to delete the " + name + " directory?";
    if (!views::AskYesNo("Are you" + question, kTitle, views::Icon::kQuestion)) return;
    if (!views::AskYesNo("Are you REALLY" + question + "\n(This is pretty serious!)", kTitle,
                         views::Icon::kQuestion)) {
        return;
    }
    DeleteDataDirectory(*this);
    lstDirectory.SetListIndex(-1);
    RefreshDirectoryList(*this);
}

}  // namespace app
