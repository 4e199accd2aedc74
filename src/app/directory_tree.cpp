#include "app/directory_tree.h"

#include <array>
#include <functional>
#include <vector>

#include "app/sys_man.h"
#include "app/system_config.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "text/strings.h"
#include "views/screen.h"

namespace app {
namespace {

using platform::DirKinds;
using platform::FileErrorKind;

std::string UpperRoot() {
    return text::UpperCase(TheConfig().NestRootDir);
}

// Whether the drive has a data area, even an empty one.
bool HasNestData(const std::string& drive) {
    try {
        const std::string pattern = drive + UpperRoot() + "\\USER\\*.*";
        return !platform::Dir(pattern, DirKinds::kFilesAndDirectories).empty();
    } catch (const platform::FileError& failure) {
        if (failure.Kind() != FileErrorKind::kPathNotFound &&
            failure.Kind() != FileErrorKind::kPathFileAccess) {
            throw;
        }
        return false;
    }
}

void MakeDataDrive(const std::string& drive) {
    platform::MkDir(drive + TheConfig().NestRootDir);
    platform::MkDir(UserDataDir(drive));
    platform::MkDir(UserDataDir(drive) + "\\PROD");
    platform::MkDir(UserDataDir(drive) + "\\DESIGN");
}

void OfferDataDrive(SysMan& window) {
    const std::string drive = window.drvList.Prefix();
    const bool yes = views::AskYesNo(
        "No Nest data on " + drive + "\nWould you like to make " + drive + " a Nest data drive?",
        "Quarvel System Manager", views::Icon::kExclamation);
    if (yes) {
        MakeDataDrive(drive);
    } else {
        window.drvList.SetDrive(TheConfig().NestHomeDrive);
    }
}

// Runs one step of a deletion; one that fails is skipped without a word.
void Attempt(const std::function<void()>& step) {
    try {
        step();
    } catch (const platform::FileError&) {
    }
}

void DeleteFolder(const std::string& path) {
    Attempt([&] { platform::Kill(path + "\\*.*"); });
    Attempt([&] { platform::RmDir(path); });
}

}  // namespace

std::string KindFolder(DataKind kind) {
    return kind == DataKind::kDesign ? "DESIGN" : "PROD";
}

std::string UserDataDir(const std::string& drive) {
    return drive + TheConfig().NestRootDir + "\\USER";
}

void RefreshDirectoryList(SysMan& window) {
    if (!HasNestData(window.drvList.Prefix()) && window.MayAskForData()) OfferDataDrive(window);

    // Asked for only now: the answer may have changed the drive.
    const auto names = platform::Dir(
        window.drvList.Prefix() + UpperRoot() + "\\USER\\" + KindFolder(window.Kind()) + "\\*.*",
        DirKinds::kFilesAndDirectories);
    window.lstDirectory.Clear();
    for (const std::string& name : names) {
        if (name == "." || name == "..") continue;
        window.lstDirectory.AddItem(text::LowerCase(text::Trim(name)));
    }
    window.cmdDelete.SetEnabled(false);
    window.cmdMaterial.SetEnabled(false);
    window.cmdPrint.SetEnabled(false);
}

void DeleteDataDirectory(const SysMan& window) {
    const std::string name = window.lstDirectory.SelectedText();
    if (name.empty()) return;
    const std::string path =
        UserDataDir(window.drvList.Prefix()) + "\\" + KindFolder(window.Kind()) + "\\" + name;
    // A link in the directory's place may lead to anybody's data.
    bool mayDelete = false;
    Attempt([&] { mayDelete = !platform::IsLink(path); });
    if (!mayDelete) return;

    const std::vector<std::string> categories =
        window.Kind() == DataKind::kDesign
            ? std::vector<std::string>{"GEOMETRY"}
            : std::vector<std::string>{"COMP", "NEST", "TAPE", "GROUP"};
    for (const std::string& category : categories) DeleteFolder(path + "\\" + category);
    DeleteFolder(path);
}

}  // namespace app
