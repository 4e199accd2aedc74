// The main window: the data directories of one kind on one drive, the commands for them, and the
// commands for the data of the whole system.
#pragma once

#include <optional>
#include <string>

#include "directories/data_area.h"
#include "platform/single_instance.h"
#include "views/basic_controls.h"
#include "views/form.h"
#include "views/lists.h"

namespace app {

class SysMan : public views::Form {
  public:
    SysMan();

    // Refills the directory list for the drive and kind chosen; nothing is selected then, and the
    // commands for a directory are disabled. For a drive without data the operator is asked whether
    // to make it a data drive; No goes back to the home drive. Other failures throw FileError.
    void RefreshDirectoryList();

    // A directory was made: shows and selects it.
    void DirectoryMade(const std::string& listedName);

    // What the window shows.
    directories::DataArea Area() const;
    directories::Listed Listed() const;

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
    views::Timer tmrNotepad{60000};  // ticks for nothing, and always has

  protected:
    void Load() override;
    void Unload() override;

  private:
    bool MayAskForData();
    void OfferDataDrive();
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
