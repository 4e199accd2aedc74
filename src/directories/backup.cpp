#include "directories/backup.h"

#include <algorithm>

#include "app/sys_man.h"
#include "app/system_config.h"
#include "platform/files.h"
#include "views/screen.h"

namespace directories {
namespace {

const std::string kTitle = "Quarvel System Manager";

}  // namespace

std::string BackupJob::BatchFile() const {
    return "@echo off\r\n"
           "echo Backing Up " +
           description + " to " + destination +
           "\r\n"
           "backup " +
           source + " " + destination +
           " /s\r\n"
           "pause\r\n";
}

bool BackupJob::IsPlain() const {
    // The description is a fixed text or a part of the source. Control characters end a line.
    return std::none_of(source.begin(), source.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' ||
               std::string_view("&|<>^%!\"").find(c) != std::string_view::npos;
    });
}

FrmBackup::FrmBackup(app::SysMan& main) : Form("frmBackup", "Quarvel Backup"), main_(main) {
    defaultButton = &cmdOK;
    closeButton = &cmdCancel;
    drvDest.widthHint = 20;

    using namespace views;
    SetLayout(Column({optAllData, optAllDirectories, optSelectedDir, Row({Label1, Grow(drvDest)}),
                      Row({Stretch(), cmdOK, cmdCancel})}));

    cmdOK.onClick = [this] { OkClick(); };
    cmdCancel.onClick = [this] { Close(); };
}

void FrmBackup::Load() {
    const bool selected = main_.lstDirectory.ListIndex() >= 0;
    optSelectedDir.SetEnabled(selected);
    (selected ? optSelectedDir : optAllDirectories).SetValue(true);

    while (!drvDest.TrySetDrive("a:") && !drvDest.TrySetDrive("b:")) {
        const auto answer = views::TheScreen().Show(
            {"Please insert a floppy disk", kTitle, views::Buttons::kOkCancel, views::Icon::kNone});
        if (answer != views::Answer::kOk) return Close();
    }
}

BackupJob FrmBackup::Job() const {
    const std::string all = app::UserDataDir(main_.drvList.Prefix());
    const std::string kind = all + "\\" + app::KindFolder(main_.Kind());
    if (optSelectedDir.Value()) {
        const std::string name = main_.lstDirectory.SelectedText();
        return {name, kind + "\\" + name + "\\*.*", drvDest.Prefix()};
    }
    if (optAllDirectories.Value()) {
        const bool design = main_.Kind() == app::DataKind::kDesign;
        return {design ? "Design Data" : "Production Data", kind + "\\*.*", drvDest.Prefix()};
    }
    return {"All Data", all + "\\*.*", drvDest.Prefix()};
}

void FrmBackup::OkClick() {
    const BackupJob job = Job();
    const app::SystemConfig& config = app::TheConfig();
    const std::string path = config.NestHomeDrive + config.NestRootDir + "\\SYSTEM\\QVBACKUP.BAT";
    platform::ReplaceWholeFile(path, job.BatchFile());

    const std::string written = "The batch file " + path + " was written.\nIt was not started: ";
    if (!job.IsPlain()) {
        views::ShowWarning(written + "the path " + job.source +
                               " has a character that the command interpreter would act on.",
                           kTitle);
    } else if (!platform::StartBatchFile(path)) {
        views::TheScreen().Show({written + "this computer has no command interpreter for it.",
                                 kTitle, views::Buttons::kOk, views::Icon::kInformation});
    }
}

}  // namespace directories
