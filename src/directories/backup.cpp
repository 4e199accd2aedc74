#include "directories/backup.h"

#include <algorithm>
#include <utility>

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

FrmBackup::FrmBackup(Listed listed)
    : Form("frmBackup", "Quarvel Backup"), listed_(std::move(listed)) {
    defaultButton = &cmdOK;
    drvDest.widthHint = 20;

    using namespace views;
    SetLayout(Column({optAllData, optAllDirectories, optSelectedDir, Row({Label1, Grow(drvDest)}),
                      Row({Stretch(), cmdOK, cmdCancel})}));

    cmdOK.onClick = [this] { OkClick(); };
    cmdCancel.onClick = [this] { Close(); };
}

void FrmBackup::Load() {
    const bool selected = listed_.chosen.has_value();
    optSelectedDir.SetEnabled(selected);
    (selected ? optSelectedDir : optAllDirectories).SetValue(true);

    while (!drvDest.TrySetDrive("a:") && !drvDest.TrySetDrive("b:")) {
        const auto answer = views::TheScreen().Show(
            {"Please insert a floppy disk", kTitle, views::Buttons::kOkCancel, views::Icon::kNone});
        if (answer != views::Answer::kOk) return Close();
    }
}

BackupJob FrmBackup::Job() const {
    const DataArea& area = listed_.area;
    if (optSelectedDir.Value()) {
        const std::string name = listed_.ChosenName();
        return {name, area.PathOf(name) + "\\*.*", drvDest.Prefix()};
    }
    if (optAllDirectories.Value()) {
        return {DescriptionOf(area.kind), area.Path() + "\\*.*", drvDest.Prefix()};
    }
    return {"All Data", area.UserPath() + "\\*.*", drvDest.Prefix()};
}

void FrmBackup::OkClick() {
    const BackupJob job = Job();
    const std::string path = app::TheConfig().UpperSystemDir() + "\\QVBACKUP.BAT";
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
