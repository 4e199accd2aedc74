// Runs the tests of everything that needs no real window, in the language of whoever starts them:
// no number in a file may follow it. None may leave a file open, which would keep it from being
// deleted.
#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <memory>

#include "tests/support/plain_player.h"

namespace {

class OpenFiles : public ::testing::EmptyTestEventListener {
    static std::ptrdiff_t Count() {
        std::error_code none;
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd", none), {});
    }
    void OnTestStart(const ::testing::TestInfo&) override { before_ = Count(); }
    void OnTestEnd(const ::testing::TestInfo&) override {
        EXPECT_EQ(Count(), before_) << "a file was left open";
    }
    std::ptrdiff_t before_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
#ifndef _WIN32
    ::testing::UnitTest::GetInstance()->listeners().Append(new OpenFiles);
#endif
    std::setlocale(LC_ALL, "");
    test::MakePlayer() = [] { return std::make_unique<test::PlainPlayer>(); };
    return RUN_ALL_TESTS();
}
