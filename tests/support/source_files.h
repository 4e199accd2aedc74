// Files of the source tree that tests compare with, byte for byte.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace test {

// The bytes of a file, its path given from the root of the source; fails the test without it.
inline std::string SourceFile(const std::string& path) {
    std::ifstream file(SYSMAN_SOURCE_DIR "/" + path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace test
