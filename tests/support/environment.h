// Sets a variable of the environment as long as it lives.
#pragma once

#include <cstdlib>
#include <optional>
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
    Environment& operator=(const Environment&) = delete;

  private:
    void Set(const std::optional<std::string>& value) const {
#ifdef _WIN32
        _putenv_s(name_, value.value_or("").c_str());  // an empty one goes
#else
        if (value) {
            setenv(name_, value->c_str(), 1);
        } else {
            unsetenv(name_);
        }
#endif
    }

    const char* name_;
    std::optional<std::string> before_;
};

}  // namespace test
