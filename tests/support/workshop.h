// A small installation on drives of its own, as the programs' own saves leave it.
#pragma once

#include <string_view>

#include "tests/support/script.h"
#include "tests/support/temp_drives.h"

namespace test {

// c: with three processes, three material types, a default list of two entries, the profile of
// operator 1 and data directories of both kinds; d: without anything.
class Workshop : public TempDrives {
  public:
    Workshop();
};

// Plays a script in a workshop of its own.
inline void Play(std::string_view script) {
    Play(Workshop(), script);
}

}  // namespace test
