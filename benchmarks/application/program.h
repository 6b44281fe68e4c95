// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include <sys/types.h>

namespace chimewell::benchmark {

using SteadyClock = std::chrono::steady_clock;

/// What the kernel says of a process, in kB. Pages that other processes map too count in part for
/// `proportional` and not at all for `privateDirty`.
struct Memory {
    long resident = 0;
    long proportional = 0;
    long privateDirty = 0;
};

/// Totals since the start, over all threads.
struct Activity {
    std::size_t threads = 0;
    long switches = 0; ///< Context switches, both those asked for and those suffered.
    std::chrono::nanoseconds processor{0};
};

/// A running program in our own environment. It ends with this object.
class Program {
public:
    /// `command` is an absolute path and its arguments.
    explicit Program(const std::vector<std::string>& command);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    SteadyClock::time_point startedAt() const { return startedAt_; }
    Memory memory() const;
    Activity activity() const;

private:
    SteadyClock::time_point startedAt_;
    pid_t process_ = -1;
};

}
