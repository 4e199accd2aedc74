// One System Manager per operator session: two would overwrite each other's edits.
#pragma once

namespace platform {

// Holds the claim of this process until it ends, however it ends: the platform gives it up even
// when the process is killed, so the next start is never refused by a dead one.
class SingleInstance {
  public:
    SingleInstance();
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    // Whether another instance held the claim when this one asked.
    bool AnotherIsRunning() const { return anotherIsRunning_; }

  private:
    bool anotherIsRunning_ = false;
    void* handle_ = nullptr;
};

}  // namespace platform
