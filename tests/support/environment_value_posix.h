#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace brindle {

/// A variable of the environment that has another value, or none, while this object lives.
class EnvironmentValue {
  public:
    EnvironmentValue(std::string name, const std::optional<std::string>& value) : name_(std::move(name)) {
        if (const char* before = std::getenv(name_.c_str())) {
            before_ = before;
        }
        Set(value);
    }

    EnvironmentValue(const EnvironmentValue&) = delete;
    EnvironmentValue& operator=(const EnvironmentValue&) = delete;
    EnvironmentValue(EnvironmentValue&&) = delete;
    EnvironmentValue& operator=(EnvironmentValue&&) = delete;

    ~EnvironmentValue() { Set(before_); }

  private:
    void Set(const std::optional<std::string>& value) {
        if (value) {
            ::setenv(name_.c_str(), value->c_str(), 1);
        } else {
            ::unsetenv(name_.c_str());
        }
    }

    std::string name_;
    std::optional<std::string> before_;
};

} // namespace brindle
