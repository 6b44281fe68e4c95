// SPDX-License-Identifier: MIT
#include "helper/process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <memory>
#include <utility>

namespace chimewell::test {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds patience{10};

std::vector<char*> pointers(std::vector<std::string>& texts)
{
    std::vector<char*> all;
    all.reserve(texts.size() + 1);
    for (std::string& text : texts)
        all.push_back(text.data());
    all.push_back(nullptr);
    return all;
}

/// Close-on-exec, so that a process has only the streams it was given.
std::pair<int, int> pipeEnds()
{
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return {-1, -1};
    return {ends[0], ends[1]};
}

void put(int descriptor, int stream)
{
    if (descriptor >= 0)
        dup2(descriptor, stream);
    else
        close(stream);
}

}

void Descriptor::reset(int descriptor)
{
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = descriptor;
}

std::string readLine(const Descriptor& from, std::string& pending)
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
        if (poll(&entry, 1, static_cast<int>(std::chrono::milliseconds(patience).count())) != 1) return {};
        const ssize_t count = read(from.get(), buffer.data(), buffer.size());
        if (count <= 0) return {};
        pending.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

Process::Process(std::vector<std::string> arguments, std::vector<std::string> environment, Streams streams)
{
    const auto argumentBlock = pointers(arguments);
    const auto environmentBlock = pointers(environment);
    pid_ = fork();
    if (pid_ != 0) return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    put(streams.input, STDIN_FILENO);
    put(streams.output, STDOUT_FILENO);
    put(streams.errors, STDERR_FILENO);
    execvpe(argumentBlock[0], argumentBlock.data(), environmentBlock.data());
    _exit(127);
}

Process::~Process()
{
    if (pid_ <= 0) return;
    raise(SIGKILL);
    wait();
}

void Process::raise(int signal) const
{
    if (pid_ > 0) kill(pid_, signal);
}

int Process::wait()
{
    int status = -1;
    if (pid_ > 0) waitpid(pid_, &status, 0);
    pid_ = -1;
    return status;
}

Finished runHook(std::vector<std::string> arguments, const std::vector<std::string>& environment,
                 const Input& input)
{
    std::signal(SIGPIPE, SIG_IGN);
    const auto [inputRead, inputWrite] = pipeEnds();
    const auto [outputRead, outputWrite] = pipeEnds();
    Descriptor toHook(inputWrite);
    const Descriptor fromHook(outputRead);
    fcntl(inputWrite, F_SETFL, O_NONBLOCK);

    const auto begin = Clock::now();
    arguments.insert(arguments.begin(), CHIMEWELL_HOOK);
    Process hook(std::move(arguments), environment,
                 {.input = input.isClosed ? -1 : inputRead, .output = outputWrite, .errors = outputWrite});
    close(inputRead);
    close(outputWrite);

    Finished finished;
    std::size_t written = 0;
    while (Clock::now() - begin < patience) {
        const bool hasMore = toHook.isOpen() && written < input.text.size();
        if (toHook.isOpen() && !hasMore) {
            finished.tookAllInput = true;
            if (input.then == Input::Then::end) toHook.reset();
            if (input.then == Input::Then::moreWithoutEnd) written = 0;
        }
        std::array<pollfd, 2> entries = {
            pollfd{.fd = fromHook.get(), .events = POLLIN, .revents = 0},
            pollfd{.fd = hasMore ? toHook.get() : -1, .events = POLLOUT, .revents = 0}};
        poll(entries.data(), entries.size(), 100);
        if (entries[1].revents != 0) {
            const ssize_t count =
                write(toHook.get(), input.text.data() + written, input.text.size() - written);
            if (count < 0 && errno != EAGAIN) toHook.reset();
            written += static_cast<std::size_t>(std::max<ssize_t>(0, count));
        }
        if (entries[0].revents == 0) continue;
        std::array<char, 4096> buffer{};
        const ssize_t count = read(fromHook.get(), buffer.data(), buffer.size());
        if (count <= 0) {
            finished.status = hook.wait();
            finished.took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
            return finished;
        }
        finished.output.append(buffer.data(), static_cast<std::size_t>(count));
    }
    finished.took = patience;
    return finished;
}

}
