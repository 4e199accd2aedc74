// Runs the tests of real windows inside the toolkit.
#include <gtest/gtest.h>

#include <memory>

#include "tests/gui/real_player.h"
#include "tests/support/test_locale.h"
#include "views/wx/toolkit.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    test::MakePlayer() = [] { return std::make_unique<test::RealPlayer>(); };
    return views::wx::RunWithToolkit(argc, argv, [&] {
        // Only now: the toolkit sets the locale when it starts.
        return test::UseLocaleFromArguments(argc, argv) ? RUN_ALL_TESTS() : 1;
    });
}
