#include "platform/single_instance.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <string>

#include "errors/errors.h"
#include "platform/native.h"

namespace platform {

// A name for a socket that is in no file system: it needs no directory, is the same whatever the
// environment says, and goes with the process.
SingleInstance::SingleInstance() {
    const std::string name = "quarvel-sysman-" + std::to_string(getuid()) + Suffix();
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const std::size_t length = std::min(name.size(), sizeof address.sun_path - 1);
    std::copy_n(name.begin(), length, address.sun_path + 1);  // behind a NUL
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);

    const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool failed =
        file < 0 || bind(file, reinterpret_cast<const sockaddr*>(&address), size) != 0;
    const std::error_code error = failed ? native::LastError() : std::error_code();
    if (file >= 0) handle_ = reinterpret_cast<void*>(static_cast<std::intptr_t>(file) + 1);
    anotherIsRunning_ = error.value() == EADDRINUSE;
    if (error && !anotherIsRunning_) {
        throw errors::FatalError("Whether another System Manager is running cannot be found out: " +
                                 native::Reason(error));
    }
}

SingleInstance::~SingleInstance() {
    if (handle_ != nullptr) close(static_cast<int>(reinterpret_cast<std::intptr_t>(handle_) - 1));
}

}  // namespace platform
