// Real files for the tests of the material list windows: three processes, four material types, a
// profile of the operator, and a list that is loaded as the main window loads it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/loader.h"
#include "app/system_config.h"
#include "materiallist/material_list_table.h"
#include "materiallist/nest_options.h"
#include "materialtypes/material_type_table.h"
#include "process/process_table.h"
#include "tests/support/temp_drives.h"
#include "text/clean_text.h"
#include "text/numbers.h"
#include "views/view_procedures.h"

namespace test {

inline const std::string kSystem = "c:\\tolvarin\\system\\";
inline const std::string kJob = "c:\\tolvarin\\USER\\PROD\\P10";
inline const std::string kUserProfile = "c:\\tolvarin\\network\\user1\\nestuser.ini";
inline const std::string kListHeader =
    "; MATERIAL.DAT\r\n; Defaults Material Database\r\n; Used for creating new directories\r\n";

// The text of a list: entries of type, process and thickness ("10").
inline std::string ListFile(const std::vector<std::vector<std::string>>& entries) {
    std::string file = kListHeader;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        file += "\r\r\n[Mat" + std::to_string(i + 1) + "]\r\nType=" + entries[i][0] +
                "\r\nThickness=" + entries[i][2] + "mm\r\nProcess=" + entries[i][1] + "\r\n";
    }
    return file;
}

struct MaterialListFiles {
    MaterialListFiles() {
        app::TheConfig() = {};
        app::TheConfig().NestRootDir = "\\tolvarin";
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().UserNumber = "1";
        // Ranges in mm: PLASMA 0 to 25, Oxy Fuel -2 to 150, WATER none listed.
        drives.Write(kSystem + "process.dat",
                     "[Processes]\r\nProcess1=PLASMA\r\nProcess2=Oxy Fuel\r\nProcess3=WATER\r\n"
                     "[PLASMA]\r\nThickness1=6mm, 1, 2\r\nThickness2=25mm, 1, 2\r\n"
                     "[Oxy Fuel]\r\nThickness1=150mm, 1, 2\r\nThickness2=-2mm, 1, 2\r\n");
        drives.Write(kSystem + "mattypes.dat",
                     "[Materials]\r\nMat1=MS\r\nMat2=Ss316\r\nMat3=SS\r\nMat4=Wear 400\r\n");
        drives.Write(
            kUserProfile,
            "; kept\r\n[Nest]\r\nAllowKerfProg=1\r\nother=x\r\nPrePiercingThickness=.5\r\n");
    }

    // Loads the list of a source from a file with these bytes.
    void Load(materiallist::ListSource source, const std::string& list) {
        materiallist::Shared().MaterialListSource = source;
        materiallist::Shared().MaterialListDirPath = kJob;
        path = (source == materiallist::kSystemDefaults ? kSystem : kJob + "\\") + "material.dat";
        drives.Write(path, list);
        ASSERT_TRUE(app::LoadForMaterialList());
    }

    TempDrives drives;
    std::string path;
};

// An entry of the table: "MS|PLASMA|10".
inline std::string EntryText(int i) {
    auto& entry = materiallist::TheMaterialList().Entry(i);
    return text::CleanText(entry.MaterialType) + "|" + text::CleanText(entry.ProcessName) + "|" +
           text::NumberText(entry.Thickness);
}

}  // namespace test
