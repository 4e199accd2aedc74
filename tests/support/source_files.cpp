#include "tests/support/source_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace test {

std::string SourceFile(const std::string& path) {
    std::ifstream file(std::filesystem::path(SYSMAN_SOURCE_DIR) / path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace test
