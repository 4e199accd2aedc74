#include "materialtypes/material_type_table.h"

#include "app/system_config.h"
#include "errors/checked.h"
#include "platform/files.h"
#include "profile/data_file.h"
#include "text/clean_text.h"
#include "text/numbers.h"

namespace materialtypes {
namespace {

// Runs `store(index, code)` for each type that the file lists, up to the first gap.
template <typename Store>
std::int16_t ForEachCode(profile::ValueReader& values, Store store) {
    for (int n = 1;; ++n) {
        const auto code = values.Read("Materials", profile::Numbered("Mat", n));
        if (code.empty()) return static_cast<std::int16_t>(n - 1);
        if (n > MaxMaterialTypes) {
            throw errors::FatalError("MATTYPES.DAT lists more than " +
                                     std::to_string(MaxMaterialTypes) + " material types");
        }
        store(static_cast<std::size_t>(n - 1), code);
    }
}

// What a field takes from a read buffer that was all blanks: the value and its NUL.
std::string WithNul(std::string_view value) {
    return std::string(value).append(1, '\0');
}

}  // namespace

MaterialTypeRecord& MaterialTypeTable::Record(int n) {
    return errors::Element(Records, n, "Material type");
}

SharedState& Shared() {
    static SharedState state;
    return state;
}

std::string MaterialTypesPath() {
    return app::TheConfig().SystemDir() + "\\mattypes.dat";
}

bool ReadMaterialTypes() {
    const auto file = profile::LoadDataFile(MaterialTypesPath());
    if (file) ReadMaterialTypes(*file, TheMaterialTypes());
    return file.has_value();
}

void ReadMaterialTypes(const profile::Profile& file, MaterialTypeTable& table) {
    profile::ValueReader values(file);
    auto records = table.Records;
    table.Count = ForEachCode(values, [&](std::size_t index, std::string_view code) {
        MaterialTypeRecord& record = records[index];
        record.Code = WithNul(code);
        const std::string_view section = record.Code.View();
        record.Description = WithNul(values.Read(section, "Description"));
        record.Density = text::ToSingle(values.Read(section, "Density", "0"));
    });
    table.Records = records;
}

bool ReadMaterialTypeCodes() {
    const auto file = profile::LoadDataFile(MaterialTypesPath());
    if (file) ReadMaterialTypeCodes(*file, TheMaterialTypes());
    return file.has_value();
}

void ReadMaterialTypeCodes(const profile::Profile& file, MaterialTypeTable& table) {
    profile::ValueReader values(file);
    auto codes = table.Codes;
    table.Count =
        ForEachCode(values, [&](std::size_t index, std::string_view code) { codes[index] = code; });
    table.Codes = codes;
}

void WriteMaterialTypes() {
    platform::ReplaceWholeFile(MaterialTypesPath(), MaterialTypesText(TheMaterialTypes()));
}

std::string MaterialTypesText(MaterialTypeTable& table) {
    profile::FileLines file;
    file.Line("; MATTYPES.DAT");
    file.Line("; Material types database.");
    file.BlankLine();
    file.Line("; Densities are in tonnes/cubic metre");
    file.BlankLine();
    if (table.Count < 1) return file.Bytes();
    file.Line("[Materials]");
    // The list takes the codes as they are stored; they are cleaned only for their sections.
    for (int n = 1; n <= table.Count; ++n) {
        file.Line(profile::Numbered("Mat", n), "=", table.Record(n).Code.View());
    }
    for (int n = 1; n <= table.Count; ++n) {
        MaterialTypeRecord& record = table.Record(n);
        const std::string code = text::CleanText(record.Code);
        record.Code = code;
        file.BlankLine();
        file.Line("[", code, "]");
        file.Line("Description=", record.Description.View());
        file.Line("Density=", text::NumberText(record.Density));
    }
    return file.Bytes();
}

}  // namespace materialtypes
