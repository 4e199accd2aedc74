// Two System Managers in one session.
#include "platform/single_instance.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/temp_drives.h"

#ifndef _WIN32
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

TEST(SingleInstance, TheSecondSeesTheFirstUntilItIsGone) {
    test::TempDrives drives;
    std::optional<platform::SingleInstance> first(std::in_place);
    EXPECT_FALSE(first->AnotherIsRunning());
    EXPECT_TRUE(platform::SingleInstance().AnotherIsRunning());
    EXPECT_TRUE(platform::SingleInstance().AnotherIsRunning());  // the second took nothing away
    first.reset();
    EXPECT_FALSE(platform::SingleInstance().AnotherIsRunning());
}

#ifndef _WIN32
TEST(SingleInstance, AKilledOneDoesNotBlockTheNext) {
    test::TempDrives drives;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        platform::SingleInstance running;
        const char answer = running.AnotherIsRunning() ? 'n' : 'y';
        if (write(ready[1], &answer, 1) == 1) pause();
        _exit(0);
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    EXPECT_TRUE(platform::SingleInstance().AnotherIsRunning());
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_FALSE(platform::SingleInstance().AnotherIsRunning());
    close(ready[0]);
    close(ready[1]);
}
#endif

}  // namespace
