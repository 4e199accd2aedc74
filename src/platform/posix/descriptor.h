// File descriptors, and calls that a signal or a share has interrupted.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace platform::native {

// Makes the call again as long as it was only interrupted.
template <typename Call>
auto Retry(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

class Descriptor {
  public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { Close(); }

    int Get() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }
    int Release() { return std::exchange(number_, -1); }
    // An interrupted close has closed all the same.
    bool Close() {
        const int closing = std::exchange(number_, -1);
        return closing < 0 || close(closing) == 0 || errno == EINTR;
    }

  private:
    int number_;
};

}  // namespace platform::native
