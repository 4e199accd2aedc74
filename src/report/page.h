// One page of everything that is set up for cutting, to look at and to hang beside the machine.
#pragma once

#include <ctime>
#include <string>
#include <vector>

namespace report {

// What comes first on the page: what is set up, or what is wrong or doubtful in it.
enum class First { kData, kFindings };

// The page in UTF-8, of the drives that are named ("c"), or of all that have data. Writes nothing;
// what cannot be read is told on the page with the reason. `now` is the time that is told on it.
// Throws errors::FileError for a drive that is named and is not there or does not answer.
std::string Page(const std::vector<std::string>& drives, const std::tm& now,
                 First first = First::kData);

}  // namespace report
