// The whole installation as the System Manager finds it: system files and the data of its drives.
#pragma once

#include <string>
#include <vector>

#include "inspect/check_files.h"
#include "inspect/finding.h"

namespace inspect {

// A material list on the system.
struct ListFile {
    std::string path;
    std::string directory;  // as lists show it; empty for the system default list
    materiallist::ListSource source;
};

// Letter and colon of those drives that are named ("c"), or of all that have data.
// Throws errors::FileError for one that is not there or does not answer.
std::vector<std::string> DataDrives(const std::vector<std::string>& named);

// The system default list and those of the production directories of the drives.
std::vector<ListFile> MaterialLists(const std::vector<std::string>& drives);

// Looks over everything and writes nothing: in the order of the files, by line in each.
Findings Check(const std::vector<std::string>& drives);

}  // namespace inspect
