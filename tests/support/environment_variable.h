// SPDX-License-Identifier: MIT
#pragma once

#include <stdlib.h>

#include <optional>
#include <string>

namespace chimewell::test {

/// Sets a variable of the process for the life of this object, or removes it.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const std::optional<std::string>& value) : name_(name)
    {
        if (const char* before = ::getenv(name)) before_ = before;
        set(value);
    }
    ~EnvironmentVariable() { set(before_); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void set(const std::optional<std::string>& value)
    {
        if (value)
            ::setenv(name_, value->c_str(), 1);
        else
            ::unsetenv(name_);
    }

    const char* name_;
    std::optional<std::string> before_;
};

}
