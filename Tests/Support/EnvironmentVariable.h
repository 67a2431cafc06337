#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace oakfen::testing {

/// Sets a variable of the environment, or takes it away, for as long as the object lives.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const char* value) : name_(name) {
        if (const char* const before = std::getenv(name)) {
            before_ = before;
        }
        set(value);
    }
    ~EnvironmentVariable() { set(before_ ? before_->c_str() : nullptr); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void set(const char* value) const {
        if (value == nullptr) {
            ::unsetenv(name_);
        } else {
            ::setenv(name_, value, 1);
        }
    }

    const char* name_;
    std::optional<std::string> before_;
};

} // namespace oakfen::testing
