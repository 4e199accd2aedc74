// A material list in memory: which material types can be cut with which process at which
// thickness. Its file is material.dat, of the system or of one production directory.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "text/fixed_text.h"

namespace profile {
class Profile;
}

namespace materiallist {

inline constexpr int MaxMaterialListEntries = 200;

struct MaterialListEntry {
    text::FixedText<32> MaterialType;
    text::FixedText<64> ProcessName;
    float Thickness = 0;  // mm; 0 in the system default list

    bool operator==(const MaterialListEntry&) const = default;
};

struct MaterialListTable {
    std::int16_t EntryCount = 0;
    std::array<MaterialListEntry, MaxMaterialListEntries> Entries;

    // Entry i, counted from 1. An index outside 1 to 200 throws platform::FatalError.
    MaterialListEntry& Entry(int i);
};

// Which list the next material list window edits.
enum MaterialListSourceKind : int {
    kSystemDefaults = 1,
    kNewDirectory = 2,
    kExistingDirectory = 3,
};

// The one list of the run, its unsaved-change flag, its source and the directory of sources 2 and
// 3 (drive letter, colon and path without a trailing backslash).
MaterialListTable& TheMaterialList();
extern bool MaterialListChanged;
extern int MaterialListSource;
extern std::string MaterialListDirPath;
// A production directory has just been created, and its list is to be opened.
extern bool DirectoryCreated;

// Empties all of the above, for the next test.
void ResetMaterialList();

// <home><root>\system\material.dat for source 1, <MaterialListDirPath>\material.dat for the others.
std::string MaterialListPath(int source);

// Fills the table from the file of the source. False after a message of its own when there is no
// such file or the list has 200 entries or more (the entries read so far then stay).
bool ReadMaterialList(int source);

// Replaces the file of the source with the table, whole or not at all; throws platform::FileError.
// Trims both text fields of every entry.
void WriteMaterialList(int source);

// The same between the bytes of a file and a table. Reading gives false for 200 entries or more.
bool ReadMaterialList(const profile::Profile& file, MaterialListTable& table);
std::string MaterialListText(MaterialListTable& table, int source);

// A thickness as the window shows it and a directory's list holds it: "0.5", "12.5", never
// negative.
std::string ThicknessText(float thickness);

}  // namespace materiallist
