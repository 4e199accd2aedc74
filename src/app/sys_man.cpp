#include "app/sys_man.h"

#include <string>
#include <utility>

#include "app/loader.h"
#include "app/system_config.h"
#include "directories/backup.h"
#include "directories/create_dir.h"
#include "directories/print_directory.h"
#include "materiallist/edit_material_list.h"
#include "materiallist/material_list_table.h"
#include "materialtypes/edit_material_types.h"
#include "platform/drives.h"
#include "platform/errors.h"
#include "process/process_defaults.h"
#include "views/application.h"
#include "views/screen.h"

namespace app {
namespace {

const std::string kTitle = "Quarvel System Manager";

// Shows a fresh window; the main window waits until it is closed.
template <typename Window, typename... Arguments>
void OpenWindow(Arguments&... arguments) {
    Window window(arguments...);
    views::ShowModal(window);
}

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
    cmdMaterial.onClick = [this] { MaterialClick(); };
    cmdCreate.onClick = [this] { CreateClick(); };
    cmdDelete.onClick = [this] { DeleteClick(); };
    cmdBackup.onClick = [this] { OpenWindow<directories::FrmBackup>(*this); };
    cmdPrint.onClick = [this] { OpenWindow<directories::FrmPrint>(*this); };
    cmdSysMaterial.onClick = [] { OpenWindow<materialtypes::FrmEditMaterialTypes>(); };
    cmdSysProcess.onClick = [] { OpenWindow<process::FrmProcessDefaults>(); };
    cmdSysDefaults.onClick = [this] {
        materiallist::MaterialListSource = materiallist::kSystemDefaults;
        OpenMaterialList();
    };
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
    if (drvList.Items().empty()) {
        throw platform::FatalError("There is no drive. Drives are " + platform::DrivesPlace() +
                                   ".");
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

void SysMan::CreateClick() {
    OpenWindow<directories::CreateDir>(*this);
    if (!materiallist::DirectoryCreated) return;
    if (lstDirectory.ListIndex() >= 0) {
        MaterialClick();
    } else {
        // What was made is not in the list, so there is nothing to open.
        materiallist::DirectoryCreated = false;
    }
}

void SysMan::MaterialClick() {
    using namespace materiallist;
    MaterialListDirPath = UserDataDir(drvList.Prefix()) + "\\PROD\\" + lstDirectory.SelectedText();
    MaterialListSource =
        std::exchange(DirectoryCreated, false) ? kNewDirectory : kExistingDirectory;
    OpenMaterialList();
}

void SysMan::OpenMaterialList() {
    if (LoadForMaterialList()) OpenWindow<materiallist::FrmEditMaterialList>();
}

}  // namespace app
