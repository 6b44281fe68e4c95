// SPDX-License-Identifier: MIT
#include "harness/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <thread>
#include <utility>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds timeout{30};

/// In the child, between fork and exec.
void connect(int descriptor, int stream)
{
    if (descriptor >= 0)
        dup2(descriptor, stream);
    else
        close(stream);
}

}

Pipe::Pipe()
{
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
    read = FileDescriptor(ends[0]);
    write = FileDescriptor(ends[1]);
}

std::string readLine(const FileDescriptor& from, std::string& pending)
{
    for (;;) {
        const auto end = pending.find('\n');
        if (end != std::string::npos) {
            std::string line = pending.substr(0, end);
            pending.erase(0, end + 1);
            return line;
        }
        pollfd entry{.fd = from.get(), .events = POLLIN, .revents = 0};
        std::array<char, 4096> buffer{};
        if (poll(&entry, 1, static_cast<int>(std::chrono::milliseconds(timeout).count())) != 1) return {};
        const ssize_t count = read(from.get(), buffer.data(), buffer.size());
        if (count <= 0) return {};
        pending.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

std::vector<char*> pointers(std::vector<std::string>& texts)
{
    std::vector<char*> all;
    all.reserve(texts.size() + 1);
    for (std::string& text : texts)
        all.push_back(text.data());
    all.push_back(nullptr);
    return all;
}

ChildProcess::ChildProcess(std::vector<std::string> command, Streams streams,
                           std::optional<Environment> environment)
{
    const auto arguments = pointers(command);
    const auto variables = environment ? pointers(*environment) : std::vector<char*>{};
    pid_ = fork();
    if (pid_ != 0) return;
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    connect(streams.input, STDIN_FILENO);
    connect(streams.output, STDOUT_FILENO);
    connect(streams.errors, STDERR_FILENO);
    execvpe(arguments[0], arguments.data(), environment ? variables.data() : environ);
    _exit(127);
}

ChildProcess::~ChildProcess()
{
    raise(SIGTERM);
    raise(SIGCONT); // a stopped process takes the request only when it goes on
    for (const auto end = Clock::now() + 10s; pid_ > 0; std::this_thread::sleep_for(1ms)) {
        if (waitpid(pid_, nullptr, WNOHANG) != 0) return;
        if (Clock::now() > end) raise(SIGKILL);
    }
}

void ChildProcess::raise(int signal) const
{
    if (pid_ > 0) kill(pid_, signal);
}

int ChildProcess::wait()
{
    int status = -1;
    if (pid_ > 0) waitpid(pid_, &status, 0);
    pid_ = -1;
    return status;
}

Finished run(std::vector<std::string> command, const Input& input, std::optional<Environment> environment)
{
    std::signal(SIGPIPE, SIG_IGN);
    Pipe toProgram;
    Pipe fromProgram;
    fcntl(toProgram.write.get(), F_SETFL, O_NONBLOCK);
    const auto begin = Clock::now();
    ChildProcess program(std::move(command),
                         {.input = input.isClosed ? -1 : toProgram.read.get(),
                          .output = fromProgram.write.get(),
                          .errors = fromProgram.write.get()},
                         std::move(environment));
    toProgram.read.close();
    fromProgram.write.close();

    Finished finished;
    std::size_t written = 0;
    while (Clock::now() - begin < timeout) {
        const bool hasMore = toProgram.write.isOpen() && written < input.text.size();
        if (toProgram.write.isOpen() && !hasMore) {
            finished.tookAllInput = true;
            if (input.then == Input::Then::end) toProgram.write.close();
            if (input.then == Input::Then::moreWithoutEnd) written = 0;
        }
        std::array<pollfd, 2> entries = {
            pollfd{.fd = fromProgram.read.get(), .events = POLLIN, .revents = 0},
            pollfd{.fd = hasMore ? toProgram.write.get() : -1, .events = POLLOUT, .revents = 0}};
        poll(entries.data(), entries.size(), 100);
        if (entries[1].revents != 0) {
            const ssize_t count =
                write(toProgram.write.get(), input.text.data() + written, input.text.size() - written);
            if (count < 0 && errno != EAGAIN) toProgram.write.close();
            written += static_cast<std::size_t>(std::max<ssize_t>(0, count));
        }
        if (entries[0].revents == 0) continue;
        std::array<char, 4096> buffer{};
        const ssize_t count = read(fromProgram.read.get(), buffer.data(), buffer.size());
        if (count <= 0) {
            finished.status = program.wait();
            break;
        }
        finished.output.append(buffer.data(), static_cast<std::size_t>(count));
    }
    finished.took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
    return finished;
}

}
