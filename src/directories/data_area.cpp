#include "directories/data_area.h"

#include <algorithm>
#include <functional>

#include "app/system_config.h"
#include "errors/errors.h"
#include "platform/files.h"
#include "platform/folder.h"
#include "text/strings.h"

namespace directories {
namespace {

using platform::DirKinds;

// Runs one step of a deletion; one that fails is skipped without a word.
void Attempt(const std::function<void()>& step) {
    try {
        step();
    } catch (const errors::FileError&) {
    }
}

// Deletes a directory with its files and, first, those of the given folders in it. It stays open
// meanwhile, so that no step is led elsewhere.
void DeleteFolder(const platform::Folder& parent, const std::string& name,
                  const std::vector<Category>& inner = {}) {
    Attempt([&] {
        const platform::Folder folder = parent.Sub(name);
        for (const Category& category : inner) DeleteFolder(folder, category.folder);
        folder.Kill();
    });
    Attempt([&] { parent.RmDir(name); });
}

std::string FolderOf(DataKind kind) {
    return kind == DataKind::kDesign ? "\\DESIGN" : "\\PROD";
}

// For looking, with the root in capitals, as it has always been looked for.
std::string UpperUserPath(const std::string& drive) {
    return drive + text::UpperCase(app::TheConfig().NestRootDir) + "\\USER";
}

}  // namespace

const std::vector<Category>& CategoriesOf(DataKind kind) {
    static const std::vector<Category> kDesign{{"GEOMETRY", "Designs"}};
    static const std::vector<Category> kProduction{
        {"COMP", "Components"}, {"GROUP", "Groups"}, {"NEST", "Nests"}, {"TAPE", "Tapes"}};
    return kind == DataKind::kDesign ? kDesign : kProduction;
}

std::string DescriptionOf(DataKind kind) {
    return kind == DataKind::kDesign ? "Design Data" : "Production Data";
}

std::string DataArea::UserPath() const {
    return drive + app::TheConfig().NestRootDir + "\\USER";
}

std::string DataArea::Path() const {
    return UserPath() + FolderOf(kind);
}

std::string DataArea::ListedPath() const {
    return UpperUserPath(drive) + FolderOf(kind);
}

bool HasNestData(const std::string& drive) {
    try {
        const std::string pattern = UpperUserPath(drive) + "\\*.*";
        return !platform::Dir(pattern, DirKinds::kFilesAndDirectories).empty();
    } catch (const errors::FileError& failure) {
        if (failure.Kind() != errors::FileErrorKind::kPathNotFound &&
            failure.Kind() != errors::FileErrorKind::kPathFileAccess) {
            throw;
        }
        return false;
    }
}

void MakeDataDrive(const std::string& drive) {
    const DataArea design{drive, DataKind::kDesign};
    platform::MkDir(drive + app::TheConfig().NestRootDir);
    platform::MkDir(design.UserPath());
    platform::MkDir(DataArea{drive, DataKind::kProduction}.Path());
    platform::MkDir(design.Path());
}

std::string ListedName(const std::string& name) {
    return text::LowerCase(text::Trim(name));
}

std::vector<std::string> ListDirectories(const DataArea& area) {
    std::vector<std::string> listed;
    for (const std::string& name :
         platform::Dir(area.ListedPath() + "\\*.*", DirKinds::kFilesAndDirectories)) {
        if (name != "." && name != "..") listed.push_back(ListedName(name));
    }
    return listed;
}

void DeleteDirectory(const DataArea& area, const std::string& name) {
    if (name.empty()) return;
    Attempt([&] {
        const platform::Folder parent(area.Path(), platform::Lookup::kOnlyMatch);
        auto names = parent.Names(DirKinds::kFilesAndDirectories);
        std::erase_if(names, [&](const std::string& other) { return ListedName(other) != name; });
        if (names.size() != 1) return;
        auto categories = CategoriesOf(area.kind);
        // Groups are deleted last, as they always were.
        std::stable_partition(categories.begin(), categories.end(),
                              [](const Category& c) { return c.folder != "GROUP"; });
        DeleteFolder(parent, names.front(), categories);
    });
}

}  // namespace directories
