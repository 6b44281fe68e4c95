// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace chimewell {

// What the helper knows of the process that it is: its variables, its user and the time that it has.

/// The variables of a process.
class Environment {
public:
    /// `block` is a list of NAME=value ended by a null pointer, as a process is given it. It outlives this
    /// object.
    explicit Environment(const char* const* block) : block_(block) {}

    /// The value of `name`; empty when it is not set.
    std::string_view operator[](std::string_view name) const;

private:
    const char* const* block_;
};

/// The folder that the application takes for the user's home, too: HOME, else what the file `users` says of
/// the user, else "/". The file is read as it is, because the system's own functions load shared libraries: a
/// user that only a directory service knows is not found.
std::string homeFolder(const Environment& environment, unsigned int userId,
                       const char* users = "/etc/passwd");

/// The terminal program that a shell with this environment runs in, spelled as that program calls itself;
/// empty when it cannot be told. Behind tmux or screen it is the terminal that started the multiplexer, which
/// need not be the one attached to it now: to ask would cost a process for every event.
std::string_view terminalOf(const Environment& environment);

/// Takes the text before `separator` off the front of `text`, and the separator.
std::string_view takeUntil(std::string_view& text, char separator);

/// When a wait is given up.
using Deadline = std::chrono::steady_clock::time_point;

/// Waits until `descriptor` is ready for one of `events` (those of poll), was closed by the other side, or
/// the deadline has passed. Returns whether it was ready before the deadline: input that never stops is
/// waited for no longer than silence.
bool waitFor(int descriptor, short events, Deadline deadline);

}
