// SPDX-License-Identifier: MIT
#pragma once

#include <stdlib.h>

#include <optional>
#include <string>
#include <utility>

namespace chimewell::test {

/// Sets a variable of the process for the life of this object, or removes it.
class EnvironmentVariable {
public:
    EnvironmentVariable(std::string name, const std::optional<std::string>& value) : name_(std::move(name))
    {
        if (const char* before = ::getenv(name_.c_str())) before_ = before;
        set(value);
    }
    ~EnvironmentVariable() { set(before_); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void set(const std::optional<std::string>& value)
    {
        value ? ::setenv(name_.c_str(), value->c_str(), 1) : ::unsetenv(name_.c_str());
    }

    std::string name_;
    std::optional<std::string> before_;
};

}
