// The material types in memory, and their file mattypes.dat.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "text/fixed_text.h"

namespace profile {
class Profile;
}

namespace materialtypes {

inline constexpr int MaxMaterialTypes = 60;

struct MaterialTypeRecord {
    text::FixedText<32> Code;
    text::FixedText<50> Description;
    float Density = 0;  // tonnes per cubic metre

    bool operator==(const MaterialTypeRecord&) const = default;
};

struct MaterialTypeTable {
    std::int16_t Count = 0;                           // shared by both stores below
    std::array<std::string, MaxMaterialTypes> Codes;  // filled by the loader, as read
    std::array<MaterialTypeRecord, MaxMaterialTypes> Records;

    // Record of row n, counted from 1. An index outside 1 to 60 throws errors::FatalError.
    MaterialTypeRecord& Record(int n);
};

// What the windows of the material types share.
struct SharedState {
    MaterialTypeTable table;
    bool MaterialTypesChanged = false;  // there are unsaved changes
};

// The one of the run.
SharedState& Shared();
inline MaterialTypeTable& TheMaterialTypes() {
    return Shared().table;
}

// <home><root>\system\mattypes.dat
std::string MaterialTypesPath();

// Fills Records and Count. False, with nothing changed, when there is no such file. Throws
// errors::FatalError for a 61st type and errors::FileError for a file that cannot be read; the
// table then stays as it was.
bool ReadMaterialTypes();

// Replaces the file with the records, whole or not at all; throws errors::FileError.
void WriteMaterialTypes();

// The loader's pass: Count and Codes. False when there is no such file; throws as above.
bool ReadMaterialTypeCodes();

// The same between the bytes of a file and a table.
void ReadMaterialTypes(const profile::Profile& file, MaterialTypeTable& table);
void ReadMaterialTypeCodes(const profile::Profile& file, MaterialTypeTable& table);
std::string MaterialTypesText(MaterialTypeTable& table);

}  // namespace materialtypes
