// What is wrong or doubtful in the data files of the system directory and in a material list.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "inspect/finding.h"
#include "materiallist/material_list_table.h"
#include "process/process_table.h"

namespace inspect {

// The tables that material lists are tied to, as the loader fills them; nothing where a file cannot
// be read. Names are looked up in the form of Comparable.
struct Tables {
    process::ProcessTable processes;
    std::optional<std::unordered_map<std::string, std::size_t>> processAt;
    std::optional<std::unordered_set<std::string>> types;
};

// Each takes the path of the file on the system and its bytes, and never writes. The first two
// fill their table where the file can be read.
void CheckProcesses(const std::string& path, const std::string& bytes, Tables& tables,
                    Findings& findings);
void CheckMaterialTypes(const std::string& path, const std::string& bytes, Tables& tables,
                        Findings& findings);
void CheckMaterialList(const std::string& path, const std::string& bytes,
                       materiallist::ListSource source, const Tables& tables, Findings& findings);
// The nesting options in the profile of the operator, which other programs share.
void CheckOptions(const std::string& path, const std::string& bytes, Findings& findings);

}  // namespace inspect
