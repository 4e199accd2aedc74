// Loading the tables that the material list window works on.
#pragma once

namespace app {

// Fills, in this order, the names and thickness ranges of the processes, the codes of the material
// types and the list of materiallist::MaterialListSource from their files. False after a message
// when a file is missing or the list is too big; what was loaded before stays. Throws
// errors::FatalError for too many processes or material types and errors::FileError for a file
// that cannot be read.
bool LoadSystemTables();

// The same for the commands that open the material list window, from empty tables. False after a
// message that the window cannot be opened.
bool LoadForMaterialList();

}  // namespace app
