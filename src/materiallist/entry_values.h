// What an entry of the material list can hold: a code of a material type, the name of a process,
// and a thickness that the process is set up for.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "materiallist/material_list_table.h"

namespace materiallist {

// As the loader read them, in the order of their tables.
std::span<const std::string> TypeCodes();
std::span<const std::string> ProcessNames();

// The number, counted from 1, of the first value that begins with the text, both cleaned and
// without regard to case; 1 if none does.
int NumberBeginningWith(std::span<const std::string> values, std::string_view text);

// Keeps the thickness (mm) of an entry within the range of its process, which is the one with the
// same clean name without regard to case. Gives the number of the process, counted from 1. Where
// there is none that is their count + 1, and the thickness stays.
int LimitThickness(MaterialListEntry& entry);

// The first of everything and the least thickness of that process; without types or processes
// their texts are empty.
MaterialListEntry FirstValues();

// Entry i as the grid shows it: its number, clean type and process, and the thickness, which the
// system default list does not have.
std::vector<std::string> EntryTexts(int i);

}  // namespace materiallist
