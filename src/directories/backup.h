// The dialog that backs data up to a removable drive: it writes a small batch file for the
// platform's backup command and starts it in a window of its own.
#pragma once

#include <string>

#include "directories/data_area.h"
#include "views/basic_controls.h"
#include "views/form.h"
#include "views/lists.h"

namespace directories {

// One run of the backup command.
struct BackupJob {
    std::string description;  // what the console window says is backed up
    std::string source;       // path with wild card
    std::string destination;  // letter and colon

    // The batch file: four lines, each ended by CR LF.
    std::string BatchFile() const;
    // Whether the command interpreter takes the names as they stand. One that holds a character
    // with a meaning of its own would run another command than the one that is written.
    bool IsPlain() const;
};

class FrmBackup : public views::Form {
  public:
    explicit FrmBackup(Listed listed);

    views::OptionGroup scopeGroup;
    views::OptionButton optAllData{*this, "optAllData", "All Data (Design and Production)",
                                   scopeGroup};
    views::OptionButton optAllDirectories{*this, "optAllDirectories", "All Directories",
                                          scopeGroup};
    views::OptionButton optSelectedDir{*this, "optSelectedDir", "Selected Directory", scopeGroup};
    views::Label Label1{*this, "Label1", "To Drive:"};
    views::DriveList drvDest{*this, "drvDest"};
    views::CommandButton cmdOK{*this, "cmdOK", "OK"};
    views::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

  protected:
    void Load() override;

  private:
    BackupJob Job() const;
    void OkClick();

    Listed listed_;
};

}  // namespace directories
