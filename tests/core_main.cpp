// Runs the tests of everything below the windows.
#include <gtest/gtest.h>

#include "tests/support/test_locale.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    return test::UseLocaleFromArguments(argc, argv) ? RUN_ALL_TESTS() : 1;
}
