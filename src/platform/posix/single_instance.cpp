#include "platform/single_instance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace platform {

// A lock on a file in the run-time directory of the operator's session. It goes with the process,
// whereas a process number written into a file may live again in another program.
SingleInstance::SingleInstance() {
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    const std::string name = folder != nullptr && folder[0] == '/'
                                 ? std::string(folder) + "/quarvel-sysman.lock"
                                 : "/tmp/quarvel-sysman-" + std::to_string(getuid()) + ".lock";
    const int file = open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0) return;  // where no lock can be kept, the program still has to work
    handle_ = reinterpret_cast<void*>(static_cast<std::intptr_t>(file) + 1);
    anotherIsRunning_ = flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

SingleInstance::~SingleInstance() {
    if (handle_ != nullptr) close(static_cast<int>(reinterpret_cast<std::intptr_t>(handle_) - 1));
}

}  // namespace platform
