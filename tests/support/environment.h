// Sets a variable of the environment as long as it lives.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace test {

class Environment {
  public:
    Environment(const char* name, const std::string& value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        Set(value);
    }
    ~Environment() { Set(before_); }
    Environment(const Environment&) = delete;

  private:
    // An empty one goes.
    void Set(const std::string& value) const {
#ifdef _WIN32
        _putenv_s(name_, value.c_str());
#else
        value.empty() ? unsetenv(name_) : setenv(name_, value.c_str(), 1);
#endif
    }

    const char* name_;
    std::string before_;
};

// Temporary files in memory, where flushing costs nothing.
class InMemory : Environment {
  public:
    InMemory()
        : Environment("TMPDIR", access("/dev/shm", W_OK) == 0
                                    ? "/dev/shm"
                                    : std::filesystem::temp_directory_path().string()) {}
};

}  // namespace test
