#include "platform/single_instance.h"

#include <windows.h>

namespace platform {

// A named mutex of the operator's session; it goes with the process.
SingleInstance::SingleInstance()
    : handle_(CreateMutexW(nullptr, FALSE, L"Local\\QuarvelSystemManager")) {
    anotherIsRunning_ = handle_ != nullptr && GetLastError() == ERROR_ALREADY_EXISTS;
}

SingleInstance::~SingleInstance() {
    if (handle_ != nullptr) CloseHandle(handle_);
}

}  // namespace platform
