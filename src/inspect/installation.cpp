#include "inspect/installation.h"

#include <algorithm>
#include <optional>

#include "app/system_config.h"
#include "directories/data_area.h"
#include "errors/errors.h"
#include "materialtypes/material_type_table.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/folder.h"
#include "text/strings.h"

namespace inspect {
namespace {

using directories::DataArea;
using directories::DataKind;
using platform::DirKinds;
using platform::Folder;
using std::string;

constexpr auto kBoth = {DataKind::kDesign, DataKind::kProduction};

// The bytes of a file; where there are none, that is found. `without` says what comes of it, ""
// where it has been told with the directory.
std::optional<string> Bytes(const string& path, const string& without, Findings& findings) {
    try {
        if (auto bytes = platform::ReadFileIfThere(path)) return bytes;
        if (without.empty()) return std::nullopt;
        findings.push_back({path, 0, Severity::kError, "is not found: " + without});
    } catch (const errors::FileError& failure) {
        findings.push_back({path, 0, Severity::kError, "cannot be read: " + failure.Reason()});
    }
    return std::nullopt;
}

// The names of a folder, directories apart from what else there is.
struct Names {
    std::vector<string> directories, files;

    explicit Names(const Folder& folder) : files(folder.Names(DirKinds::kFiles)) {
        for (const string& name : folder.Names(DirKinds::kFilesAndDirectories)) {
            if (std::find(files.begin(), files.end(), name) == files.end()) {
                directories.push_back(name);
            }
        }
    }
};

bool Contains(const std::vector<string>& names, const string& wanted) {
    return std::any_of(names.begin(), names.end(),
                       [&](const string& name) { return text::EqualIgnoringCase(name, wanted); });
}

// A directory of a data area: its category folders and what else lies in it.
void CheckDirectory(const string& path, DataKind kind, Findings& findings) {
    const auto folder = Folder::IfThere(path);
    if (!folder) return;  // gone in the meantime
    const auto report = [&](Severity severity, const string& text) {
        findings.push_back({path, 0, severity, text});
    };
    const Names names(*folder);
    std::vector<string> categories;
    for (const auto& category : directories::CategoriesOf(kind)) {
        categories.push_back(category.folder);
        if (!Contains(names.directories, category.folder)) {
            report(Severity::kWarning, "has no folder " + category.folder);
        }
    }
    for (const string& name : names.directories) {
        if (!Contains(categories, name)) {
            report(Severity::kNote,
                   "holds the folder " + name + ", which keeps it from being deleted");
        }
    }
    for (const string& name : names.files) {
        if (kind == DataKind::kProduction && text::EqualIgnoringCase(name, "MATERIAL.DAT"))
            continue;
        report(Severity::kNote, "holds the stray file " + name + ", which a deletion takes along");
    }
    if (kind == DataKind::kProduction && !Contains(names.files, "MATERIAL.DAT")) {
        report(Severity::kWarning, "has no material list, so Material... cannot open one");
    }
}

void CheckArea(const DataArea& area, Findings& findings) {
    const auto folder = Folder::IfThere(area.Path());
    if (!folder) return;
    const Names names(*folder);
    for (const string& name : names.files) {
        findings.push_back({area.Path() + "\\" + name, 0, Severity::kWarning,
                            "is a file among directories: it is listed like one"});
    }
    for (const string& name : names.directories) {
        const string path = area.Path() + "\\" + name;
        try {
            CheckDirectory(path, area.kind, findings);
        } catch (const errors::FileError& failure) {
            findings.push_back({path, 0, Severity::kError, "cannot be read: " + failure.Reason()});
        }
    }
}

}  // namespace

std::vector<string> DataDrives(const std::vector<string>& named) {
    std::vector<string> drives(named.size());
    std::transform(named.begin(), named.end(), drives.begin(),
                   [](const string& name) { return text::LowerCase(name.substr(0, 1)) + ":"; });
    if (named.empty()) {
        for (const auto& drive : platform::Drives()) {
            drives.push_back({drive.letter, ':'});
        }
    }
    // One that was named is a failure where it is not there.
    std::erase_if(drives, [&](const string& drive) {
        if (!named.empty()) platform::Resolve(drive);
        return !directories::HasNestData(drive);
    });
    return drives;
}

std::vector<ListFile> MaterialLists(const std::vector<string>& drives) {
    std::vector<ListFile> lists{
        {app::TheConfig().SystemDir() + "\\material.dat", "", materiallist::kSystemDefaults}};
    for (const string& drive : drives) {
        const DataArea area{drive, DataKind::kProduction};
        const auto folder = Folder::IfThere(area.Path());
        if (!folder) continue;
        for (const string& name : Names(*folder).directories) {
            lists.push_back({area.Path() + "\\" + name + "\\MATERIAL.DAT",
                             directories::ListedName(name), materiallist::kExistingDirectory});
        }
    }
    return lists;
}

Findings Check(const std::vector<string>& drives) {
    Findings findings;
    Tables tables;
    // What is found in a file is told in the order of its lines.
    const auto look = [&](const string& path, const char* without, const auto& check) {
        const auto begin = findings.size();
        if (const auto bytes = Bytes(path, without, findings)) check(*bytes);
        std::stable_sort(findings.begin() + static_cast<std::ptrdiff_t>(begin), findings.end(),
                         [](const Finding& a, const Finding& b) { return a.line < b.line; });
    };
    const string processes = process::ProcessFilePath(), types = materialtypes::MaterialTypesPath();
    look(processes, "there are no processes",
         [&](const string& bytes) { CheckProcesses(processes, bytes, tables, findings); });
    look(types, "there are no material types",
         [&](const string& bytes) { CheckMaterialTypes(types, bytes, tables, findings); });
    const string profile = app::TheConfig().UserProfilePath();
    look(profile, "", [&](const string& bytes) { CheckOptions(profile, bytes, findings); });
    for (const string& drive : drives) {
        for (const DataKind kind : kBoth) CheckArea({drive, kind}, findings);
    }
    for (const ListFile& list : MaterialLists(drives)) {
        const bool standard = list.source == materiallist::kSystemDefaults;
        look(list.path, standard ? "no production directory can be made" : "",
             [&](const string& bytes) {
                 CheckMaterialList(list.path, bytes, list.source, tables, findings);
             });
    }
    return findings;
}

}  // namespace inspect
