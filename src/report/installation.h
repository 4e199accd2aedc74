// What a page tells of, as far as it can be read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "inspect/installation.h"
#include "materialtypes/material_type_table.h"
#include "process/process_table.h"
#include "report/found.h"

namespace report {

// A data drive.
struct DriveData {
    std::string drive;                     // letter and colon
    std::string failure;                   // why it cannot be read; empty where it can
    std::vector<std::string> designs;      // paths of the design directories
    std::vector<inspect::ListFile> lists;  // of the production directories
};

struct Installation {
    process::ProcessTable processes;
    materialtypes::MaterialTypeTable types;
    std::string processFailure, typeFailure;  // why there are none; empty where they were read
    // The bytes of their files.
    std::string processBytes, typeBytes;
    inspect::ListFile defaultList;
    std::vector<DriveData> drives;
    inspect::Findings findings;
    std::string checkFailure;  // why it could not be looked over
};

// Throws errors::FileError for a drive that is named and is not there or does not answer.
Installation ReadInstallation(const std::vector<std::string>& drives);

}  // namespace report
