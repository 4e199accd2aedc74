// Two System Managers of one operator: the second sees the first until it is gone, however it ends.
#include "platform/single_instance.h"

#include <gtest/gtest.h>

#include "tests/support/temp_drives.h"

#ifndef _WIN32
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

bool AnotherIsRunning() {
    return platform::SingleInstance().AnotherIsRunning();
}

TEST(SingleInstance, IsSeenUntilItIsGone) {
    const test::TempDrives drives;
    {
        const platform::SingleInstance first;
        EXPECT_FALSE(first.AnotherIsRunning());
        EXPECT_TRUE(AnotherIsRunning() && AnotherIsRunning());  // the second took nothing away
    }
    EXPECT_FALSE(AnotherIsRunning());
#ifndef _WIN32
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        setenv("XDG_RUNTIME_DIR", "/nowhere", 1);  // another environment is no other operator
        const platform::SingleInstance running;
        if (write(ready[1], "y", 1) == 1) pause();
        _exit(0);
    }
    char answer = 0;
    EXPECT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_TRUE(AnotherIsRunning());
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_FALSE(AnotherIsRunning());
#endif
}

}  // namespace
