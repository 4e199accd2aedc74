#include "app/sys_man.h"

#include <algorithm>
#include <string>
#include <utility>

#include "app/loader.h"
#include "app/system_config.h"
#include "directories/backup.h"
#include "directories/create_dir.h"
#include "directories/print_directory.h"
#include "errors/errors.h"
#include "materiallist/edit_material_list.h"
#include "materiallist/material_list_table.h"
#include "materialtypes/edit_material_types.h"
#include "platform/drives.h"
#include "process/process_defaults.h"
#include "views/application.h"
#include "views/screen.h"

namespace app {
namespace {

const std::string kTitle = "Quarvel System Manager";

// Shows a fresh window; the main window waits until it is closed.
template <typename Window, typename... Arguments>
void OpenWindow(Arguments&&... arguments) {
    Window window(std::forward<Arguments>(arguments)...);
    views::ShowModal(window);
}

}  // namespace

SysMan::SysMan() : Form("SysMan", kTitle) {
    resizable = true;
    firstFocus = &lstDirectory;
    closeButton = &cmdClose;
    lstDirectory.widthHint = 32;
    lstDirectory.heightHint = 14;
    lstDirectory.spokenName = "Directories";

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

    drvList.onChange = [this] { RefreshDirectoryList(); };
    optDesign.onClick = [this] { RefreshDirectoryList(); };
    optProduction.onClick = [this] { RefreshDirectoryList(); };
    lstDirectory.onClick = [this] { DirectoryClick(); };
    cmdMaterial.onClick = [this] { MaterialClick(); };
    cmdCreate.onClick = [this] { CreateClick(); };
    cmdDelete.onClick = [this] { DeleteClick(); };
    cmdBackup.onClick = [this] { OpenWindow<directories::FrmBackup>(Listed()); };
    cmdPrint.onClick = [this] { OpenWindow<directories::FrmPrint>(Listed()); };
    cmdSysMaterial.onClick = [] { OpenWindow<materialtypes::FrmEditMaterialTypes>(); };
    cmdSysProcess.onClick = [] { OpenWindow<process::FrmProcessDefaults>(); };
    cmdSysDefaults.onClick = [this] {
        materiallist::Shared().MaterialListSource = materiallist::kSystemDefaults;
        OpenMaterialList();
    };
    cmdClose.onClick = [this] { Close(); };
}

directories::DataArea SysMan::Area() const {
    using directories::DataKind;
    return {drvList.Prefix(), optDesign.Value() ? DataKind::kDesign : DataKind::kProduction};
}

directories::Listed SysMan::Listed() const {
    directories::Listed listed{Area(), lstDirectory.Items(), {}};
    if (lstDirectory.ListIndex() >= 0) {
        listed.chosen = static_cast<std::size_t>(lstDirectory.ListIndex());
    }
    return listed;
}

void SysMan::RefreshDirectoryList() {
    if (!directories::HasNestData(drvList.Prefix()) && MayAskForData()) OfferDataDrive();

    // The area is asked for only now: the answer may have changed the drive.
    const auto listed = directories::ListDirectories(Area());
    lstDirectory.Clear();
    for (const std::string& name : listed) lstDirectory.AddItem(name);
    cmdDelete.SetEnabled(false);
    cmdMaterial.SetEnabled(false);
    cmdPrint.SetEnabled(false);
}

void SysMan::OfferDataDrive() {
    const std::string drive = drvList.Prefix();
    const bool yes = views::AskYesNo(
        "No Nest data on " + drive + "\nWould you like to make " + drive + " a Nest data drive?",
        kTitle, views::Icon::kExclamation);
    if (yes) {
        directories::MakeDataDrive(drive);
    } else {
        drvList.SetDrive(TheConfig().NestHomeDrive);
    }
}

// At start-up only once, although restoring the drive and choosing the kind both list the
// directories.
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
        throw errors::FatalError("There is no drive. Drives are " + platform::DrivesPlace() + ".");
    }
    LocateConfigFile();
    views::OnFailure([this] { SaveCurrentSysManDrive(drvList.Drive()); });
    startingUp_ = true;
    ReadSystemConfig();
    drvList.TrySetDrive(TheConfig().CurrentSysManDrive);
    lstDirectory.SetListIndex(-1);
    optDesign.SetValue(true);
    startingUp_ = false;
}

void SysMan::Unload() {
    SaveCurrentSysManDrive(drvList.Drive());
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
    directories::DeleteDirectory(Area(), name);
    lstDirectory.SetListIndex(-1);
    RefreshDirectoryList();
}

void SysMan::CreateClick() {
    OpenWindow<directories::CreateDir>(Area(),
                                       [this](const std::string& name) { DirectoryMade(name); });
    if (!materiallist::Shared().DirectoryCreated) return;
    if (lstDirectory.ListIndex() >= 0) {
        MaterialClick();
    } else {
        // What was made is not in the list, so there is nothing to open.
        materiallist::Shared().DirectoryCreated = false;
    }
}

void SysMan::DirectoryMade(const std::string& listedName) {
    RefreshDirectoryList();
    const auto& listed = lstDirectory.Items();
    const auto found = std::find(listed.begin(), listed.end(), listedName);
    if (found != listed.end()) lstDirectory.SetListIndex(static_cast<int>(found - listed.begin()));
}

void SysMan::MaterialClick() {
    using namespace materiallist;
    const directories::DataArea production{drvList.Prefix(), directories::DataKind::kProduction};
    Shared().MaterialListDirPath = production.PathOf(lstDirectory.SelectedText());
    Shared().MaterialListSource =
        std::exchange(Shared().DirectoryCreated, false) ? kNewDirectory : kExistingDirectory;
    OpenMaterialList();
}

void SysMan::OpenMaterialList() {
    if (LoadForMaterialList()) OpenWindow<materiallist::FrmEditMaterialList>();
}

}  // namespace app
