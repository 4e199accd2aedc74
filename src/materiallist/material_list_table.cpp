#include "materiallist/material_list_table.h"

#include "app/system_config.h"
#include "errors/checked.h"
#include "platform/files.h"
#include "text/clean_text.h"
#include "text/numbers.h"

namespace materiallist {

MaterialListEntry& MaterialListTable::Entry(int i) {
    return errors::Element(Entries, i, "Material list entry");
}

SharedState& Shared() {
    static SharedState state;
    return state;
}

std::string MaterialListPath(ListSource source) {
    return (source == kSystemDefaults ? app::TheConfig().SystemDir()
                                      : Shared().MaterialListDirPath) +
           "\\material.dat";
}

profile::ReadResult ReadMaterialList(ListSource source) {
    const auto file = profile::LoadDataFile(MaterialListPath(source));
    return file ? ReadMaterialList(*file, TheMaterialList()) : profile::ReadResult::kMissing;
}

profile::ReadResult ReadMaterialList(const profile::Profile& file, MaterialListTable& table) {
    profile::ValueReader values(file);
    table.EntryCount = 0;
    for (int i = 1; i <= MaxMaterialListEntries; ++i) {
        const std::string section = profile::Numbered("Mat", i);
        const auto type = values.Read(section, "Type");
        if (type.empty()) return profile::ReadResult::kRead;
        MaterialListEntry& entry = table.Entry(++table.EntryCount);
        entry.MaterialType = type;
        entry.Thickness = text::ToSingle(values.Read(section, "Thickness", "0"));
        entry.ProcessName = values.Read(section, "Process");
    }
    // A full table is refused without a look at what follows: 199 entries have always been the
    // limit.
    return profile::ReadResult::kTooBig;
}

void WriteMaterialList(ListSource source) {
    platform::ReplaceWholeFile(MaterialListPath(source),
                               MaterialListText(TheMaterialList(), source));
}

std::string MaterialListText(MaterialListTable& table, ListSource source) {
    profile::FileLines file;
    file.Line("; MATERIAL.DAT");
    file.Line("; Defaults Material Database");
    file.Line("; Used for creating new directories");
    for (int i = 1; i <= table.EntryCount; ++i) {
        MaterialListEntry& entry = table.Entry(i);
        file.BlankLine();
        file.Line("[", profile::Numbered("Mat", i), "]");
        file.Line("Type=", text::CleanText(entry.MaterialType));
        // The system's list is a template: its thicknesses are filled in per directory.
        file.Line("Thickness=", source == kSystemDefaults ? "" : text::ShownNumber(entry.Thickness),
                  "mm");
        file.Line("Process=", text::CleanText(entry.ProcessName));
    }
    return file.Bytes();
}

}  // namespace materiallist
