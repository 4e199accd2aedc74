// The nesting options of the operator, kept in the section Nest of his profile nestuser.ini.
#pragma once

#include <cstdint>
#include <string>

namespace materiallist {

struct NestOptions {
    std::int16_t AllowKerfProg = 0;       // kerf-compensated part programs may be nested: 1 or 0
    std::int16_t NestCheck = 0;           // nest clearance is checked
    std::int16_t TracePlateOutline = 0;   // the plate outline is traced
    std::int16_t PrePiercingEnabled = 0;  // plates are pre-pierced
    float PrePiercingThickness = 0;       // from this plate thickness on, mm
};

// Reads the options of the run from nestuser.ini of the user directory; what is missing or cannot
// be read takes its default.
void ReadNestOptions(const std::string& userDir);

// Writes the five keys, all or none; every other byte of the file stays. A negative thickness stays
// one: it is limited when it is read. Throws errors::FileError, with the file as it was.
void WriteNestOptions(const std::string& userDir);

}  // namespace materiallist
