#include "app/loader.h"

#include "materiallist/material_list_table.h"
#include "materialtypes/material_type_table.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "text/strings.h"
#include "views/screen.h"

namespace app {
namespace {

void Warn(std::string_view text) {
    views::TheScreen().Beep();
    views::ShowWarning(text, "Error in Loading");
}

bool Refuse(std::string_view path, std::string_view what) {
    Warn("File " + text::LowerCase(path).append(what));
    return false;
}

bool NotFound(std::string_view path) {
    return Refuse(path, " is not found");
}

}  // namespace

bool LoadSystemTables() {
    if (!process::ReadProcessRanges()) return NotFound(process::ProcessFilePath());
    if (!materialtypes::ReadMaterialTypeCodes()) {
        return NotFound(materialtypes::MaterialTypesPath());
    }
    const auto source = materiallist::Shared().MaterialListSource;
    switch (materiallist::ReadMaterialList(source)) {
        case profile::ReadResult::kRead:
            break;
        case profile::ReadResult::kMissing:
            return NotFound(materiallist::MaterialListPath(source));
        case profile::ReadResult::kTooBig:
            return Refuse(materiallist::MaterialListPath(source), " is Too big");
    }
    return true;
}

bool LoadForMaterialList() {
    materiallist::TheMaterialList().EntryCount = 0;
    process::TheProcesses().ProcessCount = 0;
    materialtypes::TheMaterialTypes().Count = 0;
    if (LoadSystemTables()) return true;
    Warn(
        "Problem During Loading files\r"
        "Can not start Material List Edit");
    return false;
}

}  // namespace app
