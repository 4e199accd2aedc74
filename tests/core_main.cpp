// Runs the tests of everything that needs no real window, in the language of whoever starts them:
// no number in a file may follow it.
#include <gtest/gtest.h>

#include <clocale>
#include <memory>

#include "tests/support/plain_player.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    std::setlocale(LC_ALL, "");
    test::MakePlayer() = [] { return std::make_unique<test::PlainPlayer>(); };
    return RUN_ALL_TESTS();
}
