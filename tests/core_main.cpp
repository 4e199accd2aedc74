// Runs the tests of everything that needs no real window.
#include <gtest/gtest.h>

#include <memory>

#include "tests/support/plain_player.h"
#include "tests/support/test_locale.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    test::MakePlayer() = [] { return std::make_unique<test::PlainPlayer>(); };
    return test::UseLocaleFromArguments(argc, argv) ? RUN_ALL_TESTS() : 1;
}
