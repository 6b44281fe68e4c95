// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace chimewell::test {

/// The end of a pipe or of another file; closed with this object.
class Descriptor {
public:
    explicit Descriptor(int descriptor = -1) : descriptor_(descriptor) {}
    ~Descriptor() { reset(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return descriptor_; }
    bool isOpen() const { return descriptor_ >= 0; }
    void reset(int descriptor = -1);

private:
    int descriptor_;
};

/// Reads on until there is a whole line, which it takes from `pending` without its end; empty after ten
/// seconds.
std::string readLine(const Descriptor& from, std::string& pending);

/// A program beside the test. It is killed with this object, and with the test's process however that ends.
class Process {
public:
    struct Streams {
        int input = -1; ///< Closed if -1, like the others.
        int output = -1;
        int errors = -1;
    };

    /// `arguments` begins with the program, which is looked for as a shell does.
    Process(std::vector<std::string> arguments, std::vector<std::string> environment, Streams streams);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void raise(int signal) const;
    /// Its wait status.
    int wait();

private:
    pid_t pid_ = -1;
};

/// What the program under test gets on standard input.
struct Input {
    std::string text = {};
    enum class Then { end, silence, moreWithoutEnd } then = Then::end;
    bool isClosed = false; ///< There is no standard input at all.
};

struct Finished {
    int status = -1;    ///< As by `Process::wait`.
    std::string output; ///< On both streams, of the program and of all that it left behind.
    bool tookAllInput = false;
    std::chrono::milliseconds took{}; ///< Until its output streams were closed by everybody.
};

/// Runs the helper. It is given ten seconds, which none of the tests is about.
Finished runHook(std::vector<std::string> arguments, const std::vector<std::string>& environment,
                 const Input& input = {});

}
