#include "app/loader.h"

#include "materiallist/load_warnings.h"
#include "materiallist/material_list_table.h"
#include "materialtypes/material_type_table.h"
#include "process/process_file.h"
#include "process/process_table.h"

namespace app {
namespace {

bool NotFound(const std::string& path) {
    materiallist::WarnAboutFile(path, " is not found");
    return false;
}

}  // namespace

bool LoadSystemTables() {
    if (!process::ReadProcessRanges()) return NotFound(process::ProcessFilePath());
    if (!materialtypes::ReadMaterialTypeCodes()) {
        return NotFound(materialtypes::MaterialTypesPath());
    }
    return materiallist::ReadMaterialList(materiallist::MaterialListSource);
}

bool LoadForMaterialList() {
    materiallist::TheMaterialList().EntryCount = 0;
    process::TheProcesses().ProcessCount = 0;
    materialtypes::TheMaterialTypes().Count = 0;
    if (LoadSystemTables()) return true;
    materiallist::WarnInLoading(
        "Problem During Loading files\r"
        "Can not start Material List Edit");
    return false;
}

}  // namespace app
