// The main window: the data directories of one kind on one drive, the commands for them, and the
// commands for the data of the whole system.
#pragma once

#include <optional>

#include "app/directory_tree.h"
#include "platform/single_instance.h"
#include "views/basic_controls.h"
#include "views/form.h"
#include "views/lists.h"

namespace app {

class SysMan : public views::Form {
  public:
    SysMan();

    DataKind Kind() const { return optDesign.Value() ? DataKind::kDesign : DataKind::kProduction; }

    // Whether the operator may be asked to make a data drive now: at start-up only once, although
    // restoring the drive and choosing the kind both list the directories.
    bool MayAskForData();

    views::Frame Frame1{*this, "Frame1", "Directory"};
    views::Label lblDrive{*this, "lblDrive", "Drive:"};
    views::DriveList drvList{*this, "drvList"};
    views::OptionGroup kindGroup;
    views::OptionButton optDesign{*this, "optDesign", "Design Data", kindGroup};
    views::OptionButton optProduction{*this, "optProduction", "Production Data", kindGroup};
    views::ListBox lstDirectory{*this, "lstDirectory"};
    views::CommandButton cmdMaterial{*this, "cmdMaterial", "Material..."};
    views::CommandButton cmdCreate{*this, "cmdCreate", "Create..."};
    views::CommandButton cmdDelete{*this, "cmdDelete", "Delete..."};
    views::CommandButton cmdBackup{*this, "cmdBackup", "Backup..."};
    views::CommandButton cmdPrint{*this, "cmdPrint", "Print..."};
    views::Frame Frame2{*this, "Frame2", "System Wide Data"};
    views::CommandButton cmdSysMaterial{*this, "cmdSysMaterial", "Material..."};
    views::CommandButton cmdSysProcess{*this, "cmdSysProcess", "Process..."};
    views::CommandButton cmdSysDefaults{*this, "cmdSysDefaults", "Defaults..."};
    views::CommandButton cmdClose{*this, "cmdClose", "Close"};
    views::Timer tmrNotepad{*this, 60000};

  protected:
    void Load() override;
    void Unload() override;

  private:
    void DirectoryClick();
    void DeleteClick();
    void CreateClick();
    void MaterialClick();
    void OpenMaterialList();

    std::optional<platform::SingleInstance> instance_;
    bool startingUp_ = false;
    bool askedAtStart_ = false;
};

}  // namespace app
