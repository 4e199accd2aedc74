#include "directories/create_dir.h"

#include <string_view>
#include <utility>

#include "app/system_config.h"
#include "errors/errors.h"
#include "materiallist/material_list_table.h"
#include "platform/files.h"
#include "text/strings.h"
#include "views/screen.h"

namespace directories {
namespace {

const std::string kTitle = "Quarvel System Manager";
constexpr std::size_t kLongestName = 50;

// A wild card, what divides a path, and the comma have never been taken in a name. Everything else
// is for the file system to refuse.
bool IsInvalid(std::string_view name) {
    return name.find_first_of("*\\:,") != name.npos || name.size() > kLongestName;
}

// False when there is such a directory already, or the file system refuses the name like one.
bool MakeDirectory(const std::string& path) {
    try {
        platform::MkDir(path);
        return true;
    } catch (const errors::FileError& failure) {
        if (failure.Kind() != errors::FileErrorKind::kPathFileAccess) throw;
        return false;
    }
}

// The folders in a new directory, and the material list that the jobs of a production directory
// start from.
void FillDirectory(const std::string& path, DataKind kind) {
    for (const Category& category : CategoriesOf(kind)) {
        platform::MkDir(path + "\\" + category.folder);
    }
    if (kind == DataKind::kDesign) return;
    platform::FileCopy(app::TheConfig().UpperSystemDir() + "\\MATERIAL.DAT",
                       path + "\\MATERIAL.DAT");
}

}  // namespace

CreateDir::CreateDir(const DataArea& area, std::function<void(const std::string& name)> made)
    : Form("CreateDir", "Create Quarvel Directory"), area_(area), made_(std::move(made)) {
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
    const std::string path = area_.PathOf(name);
    if (!MakeDirectory(path)) {
        views::ShowWarning("The directory " + name + " already exists", kTitle);
        txtDirName.SelectAll();
        return;
    }
    FillDirectory(path, area_.kind);
    txtDirName.SetText(ListedName(name));
    made_(txtDirName.Text());
    Close();
    if (area_.kind == DataKind::kProduction) materiallist::Shared().DirectoryCreated = true;
}

void CreateDir::CancelClick() {
    materiallist::Shared().DirectoryCreated = false;
    Close();
}

}  // namespace directories
