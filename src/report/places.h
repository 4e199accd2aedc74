// Where the parts of an installation stand on the page.
#pragma once

#include "report/found.h"
#include "report/installation.h"

namespace report {

inline const Place kProcessesPlace{"processes", "Processes"};
inline const Place kTypesPlace{"types", "Material types"};
inline const Place kDefaultListPlace{"default", "System default list"};
Place PlaceOfDrive(const DriveData& drive);
Place PlaceOfDesign(const DriveData& drive, std::size_t index);
Place PlaceOfList(const DriveData& drive, std::size_t index);

// Puts everything that was found to its place, but what was found in material lists: they are read
// when they are written.
void PlaceAll(Installation& all, Found& found);

}  // namespace report
