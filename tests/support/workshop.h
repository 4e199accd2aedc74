// A small installation on drives of its own, as the programs' own saves leave it.
#pragma once

#include "tests/support/temp_drives.h"

namespace test {

// c: with three processes, three material types, a default list of two entries, the profile of
// operator 1 and data directories of both kinds; d: without anything.
class Workshop : public TempDrives {
  public:
    Workshop();
};

}  // namespace test
