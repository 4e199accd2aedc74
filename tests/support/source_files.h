// Files of the source tree that tests compare with, byte for byte.
#pragma once

#include <string>

namespace test {

// The bytes of a file, its path given from the root of the source; fails the test without it.
std::string SourceFile(const std::string& path);

}  // namespace test
