// Showing a file on a Linux desktop.
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <array>
#include <string>

#include "platform/native.h"

namespace platform::native {

void ShowToOperator(const fs::path& path, std::error_code& error) {
    std::string program = "xdg-open", file = path.native();
    const std::array<char*, 3> arguments{program.data(), file.data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    // A browser keeps what it gets, and whoever reads what this program tells would wait for it.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
    }
    pid_t started = 0;
    const int failure =
        posix_spawnp(&started, program.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) error = {failure, std::generic_category()};
}

}  // namespace platform::native
