// A material list in memory: which material types can be cut with which process at which
// thickness. Its file is material.dat, of the system or of one production directory.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "materiallist/nest_options.h"
#include "profile/data_file.h"
#include "text/fixed_text.h"

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

    // Entry i, counted from 1. An index outside 1 to 200 throws errors::FatalError.
    MaterialListEntry& Entry(int i);
};

// Which list the next material list window edits.
enum ListSource : int {
    kSystemDefaults = 1,
    kNewDirectory = 2,
    kExistingDirectory = 3,
};

// What the material list window and those who open it share.
struct SharedState {
    MaterialListTable table;
    bool MaterialListChanged = false;  // there are unsaved changes
    ListSource MaterialListSource = kSystemDefaults;
    // The directory of sources 2 and 3: drive letter, colon and path without a trailing backslash.
    std::string MaterialListDirPath;
    // A production directory has just been created, and its list is to be opened.
    bool DirectoryCreated = false;
    NestOptions options;
    bool NestOptionsChanged = false;  // there are unsaved changes
};

// The one of the run.
SharedState& Shared();
inline MaterialListTable& TheMaterialList() {
    return Shared().table;
}
inline NestOptions& TheNestOptions() {
    return Shared().options;
}

// <home><root>\system\material.dat for source 1, <MaterialListDirPath>\material.dat for the others.
std::string MaterialListPath(ListSource source);

// Fills the table from the file of the source. A list of 200 entries or more is too big; the
// entries read so far then stay. Throws errors::FileError for a file that cannot be read.
profile::ReadResult ReadMaterialList(ListSource source);

// Replaces the file of the source with the table, whole or not at all; throws errors::FileError.
// Trims both text fields of every entry.
void WriteMaterialList(ListSource source);

// The same between the bytes of a file and a table.
profile::ReadResult ReadMaterialList(const profile::Profile& file, MaterialListTable& table);
std::string MaterialListText(MaterialListTable& table, ListSource source);

}  // namespace materiallist
