#include "materiallist/material_list_table.h"

#include "app/system_config.h"
#include "materiallist/load_warnings.h"
#include "platform/checked.h"
#include "platform/files.h"
#include "profile/data_file.h"
#include "text/numbers.h"
#include "views/view_procedures.h"

namespace materiallist {

bool MaterialListChanged = false;
int MaterialListSource = kSystemDefaults;
std::string MaterialListDirPath;
bool DirectoryCreated = false;

MaterialListEntry& MaterialListTable::Entry(int i) {
    return platform::Element(Entries, i, "Material list entry");
}

MaterialListTable& TheMaterialList() {
    static MaterialListTable table;
    return table;
}

void ResetMaterialList() {
    TheMaterialList() = {};
    MaterialListChanged = false;
    MaterialListSource = kSystemDefaults;
    MaterialListDirPath.clear();
    DirectoryCreated = false;
}

std::string MaterialListPath(int source) {
    return (source == kSystemDefaults ? app::TheConfig().SystemDir() : MaterialListDirPath) +
           "\\material.dat";
}

bool ReadMaterialList(int source) {
    const std::string path = MaterialListPath(source);
    const auto file = profile::LoadDataFile(path);
    if (!file) {
        WarnAboutFile(path, " is not found");
        return false;
    }
    if (!ReadMaterialList(*file, TheMaterialList())) {
        WarnAboutFile(path, " is Too big");
        return false;
    }
    return true;
}

bool ReadMaterialList(const profile::Profile& file, MaterialListTable& table) {
    profile::ValueReader values(file);
    table.EntryCount = 0;
    for (int i = 1; i <= MaxMaterialListEntries; ++i) {
        const std::string section = profile::Numbered("Mat", i);
        const auto type = values.Read(section, "Type");
        if (type.empty()) return true;
        MaterialListEntry& entry = table.Entry(++table.EntryCount);
        entry.MaterialType = type;
        entry.Thickness = text::ToSingle(text::Val(values.Read(section, "Thickness", "0")));
        entry.ProcessName = values.Read(section, "Process");
    }
    // A full table is refused without a look at what follows: 199 entries are the limit that the
    // nesting system's installations are used to.
    return false;
}

void WriteMaterialList(int source) {
    platform::ReplaceWholeFile(MaterialListPath(source),
                               MaterialListText(TheMaterialList(), source));
}

std::string MaterialListText(MaterialListTable& table, int source) {
    profile::FileText file;
    file.Line("; MATERIAL.DAT");
    file.Line("; Defaults Material Database");
    file.Line("; Used for creating new directories");
    for (int i = 1; i <= table.EntryCount; ++i) {
        MaterialListEntry& entry = table.Entry(i);
        file.BlankLine();
        file.Line("[", profile::Numbered("Mat", i), "]");
        file.Line("Type=", views::CleanText(entry.MaterialType));
        // The system's list is a template: its thicknesses are filled in per directory.
        file.Line("Thickness=", source == kSystemDefaults ? "" : ThicknessText(entry.Thickness),
                  "mm");
        file.Line("Process=", views::CleanText(entry.ProcessName));
    }
    return file.Bytes();
}

std::string ThicknessText(float thickness) {
    return views::LeadingZeroText(text::NumberText(thickness));
}

}  // namespace materiallist
