#include "app/directory_tree.h"

#include <array>
#include <functional>
#include <vector>

#include "app/sys_man.h"
#include "app/system_config.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/folder.h"
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

// As the list shows it.
std::string Listed(const std::string& name) {
    return text::LowerCase(text::Trim(name));
}

// Deletes a directory with its files and, first, those of the given folders in it. It stays open
// meanwhile, so that no step is led elsewhere.
void DeleteFolder(const platform::Folder& parent, const std::string& name,
                  const std::vector<std::string>& categories = {}) {
    Attempt([&] {
        const platform::Folder folder = parent.Sub(name);
        for (const std::string& category : categories) DeleteFolder(folder, category);
        folder.Kill();
    });
    Attempt([&] { parent.RmDir(name); });
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
        window.lstDirectory.AddItem(Listed(name));
    }
    window.cmdDelete.SetEnabled(false);
    window.cmdMaterial.SetEnabled(false);
    window.cmdPrint.SetEnabled(false);
}

void DeleteDataDirectory(const SysMan& window) {
    const std::string name = window.lstDirectory.SelectedText();
    if (name.empty()) return;
    const std::vector<std::string> categories =
        window.Kind() == DataKind::kDesign
            ? std::vector<std::string>{"GEOMETRY"}
            : std::vector<std::string>{"COMP", "NEST", "TAPE", "GROUP"};
    Attempt([&] {
        const platform::Folder parent(
            UserDataDir(window.drvList.Prefix()) + "\\" + KindFolder(window.Kind()),
            platform::Lookup::kOnlyMatch);
        auto names = parent.Names(DirKinds::kFilesAndDirectories);
        std::erase_if(names, [&](const std::string& other) { return Listed(other) != name; });
        if (names.size() == 1) DeleteFolder(parent, names.front(), categories);
    });
}

}  // namespace app
