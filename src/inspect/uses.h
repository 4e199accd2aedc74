// Where a process or a material type is named: what one wants to know before it is deleted, when
// the windows warn that whatever uses it will become invalid.
#pragma once

#include <string>
#include <vector>

#include "inspect/finding.h"
#include "inspect/installation.h"

namespace inspect {

enum class Named { kProcess, kMaterialType };

// Every entry of the lists that names it, without regard to case, as notes at their lines. Throws
// errors::FileError for a list that is there but cannot be read.
Findings UsesOf(Named what, const std::string& name, const std::vector<ListFile>& lists);

}  // namespace inspect
