#include "inspect/check_files.h"
#include "inspect/data_file.h"

namespace inspect {

void CheckOptions(const std::string& path, const std::string& bytes, Findings& findings) {
    const DataFile file(path, bytes, findings);
    for (const char* key : {"AllowKerfProg", "NestCheck", "TracePlateOutline", "PrePiercingEnabled",
                            "PrePiercingThickness"}) {
        file.CheckNumber("Nest", key);
    }
}

}  // namespace inspect
