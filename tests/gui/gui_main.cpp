// Runs the tests of real windows inside the toolkit.
#include <gtest/gtest.h>

#include <clocale>
#include <memory>

#include "tests/gui/real_player.h"
#include "views/wx/toolkit.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    test::MakePlayer() = [] { return std::make_unique<test::RealPlayer>(); };
    return views::wx::RunWithToolkit(argc, argv, [] {
        std::setlocale(LC_ALL, "");  // only now: the toolkit sets another one when it starts
        return RUN_ALL_TESTS();
    });
}
