// A handle of the platform, closed when it goes.
#pragma once

#include <windows.h>

#include <utility>

namespace platform::native {

class Handle {
  public:
    explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Handle() { Close(); }

    HANDLE Get() const { return handle_; }
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    bool Close() {
        const HANDLE closing = std::exchange(handle_, INVALID_HANDLE_VALUE);
        return closing == INVALID_HANDLE_VALUE || CloseHandle(closing);
    }

  private:
    HANDLE handle_;
};

}  // namespace platform::native
