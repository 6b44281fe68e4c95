// SPDX-License-Identifier: MIT
#include "program.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <thread>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace chimewell::benchmark {

namespace {

using namespace std::chrono_literals;

/// The number behind `label` in a file of lines such as "Pss:   120 kB".
long numberIn(const std::filesystem::path& file, std::string_view label)
{
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(label)) return std::strtol(line.c_str() + label.size(), nullptr, 10);
    return 0;
}

}

Program::Program(const std::vector<std::string>& command) : startedAt_(SteadyClock::now())
{
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    if (posix_spawn(&process_, arguments.front(), nullptr, nullptr, arguments.data(), environ) != 0) {
        std::fprintf(stderr, "cannot start %s\n", arguments.front());
        std::exit(1);
    }
}

Program::~Program()
{
    kill(process_, SIGTERM);
    const auto limit = SteadyClock::now() + 5s;
    while (waitpid(process_, nullptr, WNOHANG) == 0) {
        if (SteadyClock::now() > limit) {
            kill(process_, SIGKILL);
            waitpid(process_, nullptr, 0);
            return;
        }
        std::this_thread::sleep_for(2ms);
    }
}

Memory Program::memory() const
{
    const auto file = std::filesystem::path("/proc") / std::to_string(process_) / "smaps_rollup";
    return {.resident = numberIn(file, "Rss:"),
            .proportional = numberIn(file, "Pss:"),
            .privateDirty = numberIn(file, "Private_Dirty:")};
}

Activity Program::activity() const
{
    Activity total;
    const auto folder = std::filesystem::path("/proc") / std::to_string(process_) / "task";
    for (const auto& thread : std::filesystem::directory_iterator(folder)) {
        ++total.threads;
        total.switches += numberIn(thread.path() / "status", "voluntary_ctxt_switches:") +
                          numberIn(thread.path() / "status", "nonvoluntary_ctxt_switches:");
        std::ifstream times(thread.path() / "schedstat");
        long running = 0; // nanoseconds; the first of three numbers
        times >> running;
        total.processor += std::chrono::nanoseconds(running);
    }
    return total;
}

}
