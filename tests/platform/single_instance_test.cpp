// Two System Managers of one operator.
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

TEST(SingleInstance, TheSecondSeesTheFirstUntilItIsGoneHoweverItEnds) {
    const test::TempDrives drives;
    {
        const platform::SingleInstance first;
        EXPECT_FALSE(first.AnotherIsRunning());
        EXPECT_TRUE(AnotherIsRunning());
        EXPECT_TRUE(AnotherIsRunning());  // the second took nothing away
    }
    EXPECT_FALSE(AnotherIsRunning());
#ifndef _WIN32
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        // Another environment is no other operator.
        for (const char* name : {"XDG_RUNTIME_DIR", "HOME"}) setenv(name, "/nowhere", 1);
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
