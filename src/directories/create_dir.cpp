#include "directories/create_dir.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "app/sys_man.h"
#include "app/system_config.h"
#include "materiallist/material_list_table.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "text/strings.h"
#include "views/screen.h"

namespace directories {
namespace {

const std::string kTitle = "Quarvel System Manager";
constexpr std::size_t kLongestName = 50;

// What the nesting system cannot take in a name: a wild card, what divides a path, and the comma
// that divides its own lists. Everything else is for the file system to refuse.
bool IsInvalid(std::string_view name) {
    return name.find_first_of("*\\:,") != name.npos || name.size() > kLongestName;
}

// False when there is such a directory already, or the file system refuses the name like one.
bool MakeDirectory(const std::string& path) {
    try {
        platform::MkDir(path);
        return true;
    } catch (const platform::FileError& failure) {
        if (failure.Kind() != platform::FileErrorKind::kPathFileAccess) throw;
        return false;
    }
}

// The folders in a new directory, and the material list that its jobs start from.
void FillDirectory(const std::string& path, app::DataKind kind) {
    if (kind == app::DataKind::kDesign) {
        platform::MkDir(path + "\\GEOMETRY");
        return;
    }
    for (const char* category : {"\\COMP", "\\GROUP", "\\NEST", "\\TAPE"}) {
        platform::MkDir(path + category);
    }
    const app::SystemConfig& config = app::TheConfig();
    platform::FileCopy(config.NestHomeDrive + config.NestRootDir + "\\SYSTEM\\MATERIAL.DAT",
                       path + "\\MATERIAL.DAT");
}

}  // namespace

CreateDir::CreateDir(app::SysMan& main)
    : Form("CreateDir", "Create Quarvel Directory"), main_(main) {
    firstFocus = &txtDirName;
    defaultButton = &cmdOK;
    closeButton = &cmdCancel;
    txtDirName.widthHint = kLongestName;

    using namespace views;
    SetLayout(Column({Label1, txtDirName, Row({Stretch(), cmdOK, cmdCancel})}));

    cmdOK.onClick = [this] { OkClick(); };
    cmdCancel.onClick = [this] { CancelClick(); };
}

void CreateDir::Load() {
    txtDirName.SetText("");
}

void CreateDir::OkClick() {
    const std::string name(text::Trim(txtDirName.Text()));
    txtDirName.SetText(name);
    if (name.empty()) return;
    if (IsInvalid(name)) {
        views::TheScreen().Beep();
        views::TheScreen().Show({"The directory name is invalid.", kTitle, views::Buttons::kOk,
                                 views::Icon::kInformation});
        txtDirName.SetFocus();
        txtDirName.SelectAll();
        return;
    }
    const std::string path = app::UserDataDir(main_.drvList.Prefix()) + "\\" +
                             app::KindFolder(main_.Kind()) + "\\" + name;
    if (!MakeDirectory(path)) {
        views::ShowWarning("The directory " + name + " already exists", kTitle);
        txtDirName.SelectAll();
        return;
    }
    FillDirectory(path, main_.Kind());
    app::RefreshDirectoryList(main_);

    txtDirName.SetText(text::LowerCase(name));
    const auto& listed = main_.lstDirectory.Items();
    const auto found = std::find(listed.begin(), listed.end(), txtDirName.Text());
    if (found != listed.end()) {
        main_.lstDirectory.SetListIndex(static_cast<int>(found - listed.begin()));
    }
    Close();
    if (main_.optProduction.Value()) materiallist::DirectoryCreated = true;
}

void CreateDir::CancelClick() {
    materiallist::DirectoryCreated = false;
    Close();
}

}  // namespace directories
