// One System Manager per operator and computer: two would overwrite each other's edits.
#pragma once

#include <string>

namespace platform {

// Holds the claim of this process until it ends, however it ends: the platform gives it up even
// when the process is killed, so the next start is never refused by a dead one. Throws FatalError
// when it cannot be found out whether another has it.
class SingleInstance {
  public:
    SingleInstance();
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    // Whether another instance held the claim when this one asked.
    bool AnotherIsRunning() const { return anotherIsRunning_; }

    // Part of the claim's name: with one of its own a test does not meet what runs on the computer.
    static std::string& Suffix();

  private:
    bool anotherIsRunning_ = false;
    void* handle_ = nullptr;
};

}  // namespace platform
