// SPDX-License-Identifier: MIT
#pragma once

#include "platform/posix/file_descriptor.h"

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace chimewell::test {

/// Both ends are close-on-exec, so that a process has only the streams it was given.
struct Pipe {
    Pipe();

    FileDescriptor read;
    FileDescriptor write;
};

/// Takes the next whole line out of `pending`, without its end, reading on until there is one. Empty after
/// thirty seconds and at the end of the file.
std::string readLine(const FileDescriptor& from, std::string& pending);

/// Variables as "NAME=value".
using Environment = std::vector<std::string>;

/// `texts` as the system takes arguments and environments, with a null pointer at the end.
std::vector<char*> pointers(std::vector<std::string>& texts);

/// Of a child process; a stream that is -1 is closed.
struct Streams {
    int input = -1;
    int output = 2;
    int errors = 2;
};

/// A program beside the test. It ends with this object, and with the test's process however that ends.
class ChildProcess {
public:
    /// `command` begins with the program, which is looked for as a shell does. Without an environment it gets
    /// the test's own.
    explicit ChildProcess(std::vector<std::string> command, Streams streams = {},
                          std::optional<Environment> environment = std::nullopt);
    /// Asks it to end, and kills it after ten seconds.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t pid() const { return pid_; }
    void raise(int signal) const;
    /// Waits for its end; the status as of waitpid.
    int wait();

private:
    pid_t pid_ = -1;
};

/// What a program gets on standard input.
struct Input {
    std::string text = {};
    enum class Then { end, silence, moreWithoutEnd } then = Then::end;
    bool isClosed = false; ///< There is no standard input at all.
};

struct Finished {
    int status = -1;    ///< As of waitpid; -1 if it did not end within thirty seconds.
    std::string output; ///< On both streams, of the program and of all that it left behind.
    bool tookAllInput = false;
    std::chrono::milliseconds took{}; ///< Until everybody had closed its output streams.
};

/// Runs a program to its end.
Finished run(std::vector<std::string> command, const Input& input = {},
             std::optional<Environment> environment = std::nullopt);

}
