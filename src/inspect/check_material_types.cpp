#include <algorithm>
#include <vector>

#include "errors/errors.h"
#include "inspect/believable.h"
#include "inspect/check_files.h"
#include "inspect/data_file.h"
#include "materialtypes/material_type_table.h"
#include "profile/data_file.h"
#include "text/numbers.h"

namespace inspect {

void CheckMaterialTypes(const std::string& path, const std::string& bytes, Tables& tables,
                        Findings& findings) {
    using materialtypes::MaterialTypeRecord;
    DataFile file(path, bytes, findings);
    const std::string list = "Materials";
    const int count =
        file.CountNumbered(list, "Mat", materialtypes::MaxMaterialTypes, "material types");
    std::vector<std::string> seen{Comparable(list)};
    for (int n = 1; n <= std::min(count, materialtypes::MaxMaterialTypes); ++n) {
        const std::string key = profile::Numbered("Mat", n), code = file.Value(list, key);
        const std::size_t line = file.LineOf(list, key);
        const std::string section = code.substr(0, decltype(MaterialTypeRecord::Code)::kWidth);
        file.CheckName(line, code, decltype(MaterialTypeRecord::Code)::kWidth);
        if (std::find(seen.begin(), seen.end(), Comparable(section)) != seen.end()) {
            file.ReportShared(line, code, section);
            continue;
        }
        seen.push_back(Comparable(section));
        file.Use(section);
        if (!file.HasSection(section)) {
            file.ReportNoSection(line, code, section, "no description and the density 0");
            continue;
        }
        file.CheckWidth(file.LineOf(section, "Description"), file.Value(section, "Description"),
                        decltype(MaterialTypeRecord::Description)::kWidth);
        file.CheckNumber(section, "Density");
        const std::string doubt = DoubtOfDensity(text::ToSingle(file.Value(section, "Density")));
        if (!doubt.empty()) {
            file.Report(Severity::kNote, file.LineOf(section, "Density"),
                        std::string(code).append(": ").append(doubt));
        }
    }
    file.CheckUnused({"Mat#", "Description", "Density"});
    materialtypes::MaterialTypeTable table;
    try {
        ReadMaterialTypeCodes(file.Profile(), table);
        auto& types = tables.types.emplace();
        for (int n = 0; n < table.Count; ++n) {
            types.insert(Comparable(table.Codes[static_cast<std::size_t>(n)]));
        }
    } catch (const errors::FatalError&) {
        // Told above.
    }
}

}  // namespace inspect
