// SPDX-License-Identifier: MIT
// bench_helper [ROUNDS], inside a session of desktop.py: what one call of chimewell-hook costs, beside
// programs that bound it from below and what people put into hooks otherwise, and whether every event
// arrives. All commands run in random order in each round. Instructions are counted by valgrind, where that
// is installed.

#include "helper/bus_message.h"
#include "helper/session_bus.h"
#include "platform/posix/file_descriptor.h"
#include "values/shared_names.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace chimewell::benchmarks {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

struct Command {
    std::string name;
    std::vector<std::string> arguments;
    std::string input;
    std::string bound = {};         ///< Name of the command that this one is compared to besides the floor.
    std::vector<double> walls = {}; ///< Milliseconds, one a round.
};

/// A tool's payload with what we need at one end of it, and an escape every ten bytes or so like program
/// text.
std::string payload(std::size_t size, bool knownLast)
{
    const std::string known =
        R"("session_id":"d74fe2e3-8e9f-490d-823f-4cee31b45be5","cwd":"/home/dev/project")";
    const std::string name =
        R"("hook_event_name":"PostToolUse","tool_name":"Write","tool_input":{"content":")";
    std::string text;
    while (text.size() + known.size() + name.size() < size)
        text += R"(for (const auto& entry : entries) {\n\tif (entry.name == \"main\") return true;\n}\n)";
    const std::string tool = name + text + R"("})";
    return "{" + (knownLast ? tool + "," + known : known + "," + tool) + "}\n";
}

/// `texts` as the system takes arguments and environments, with a null pointer at the end.
std::vector<char*> pointers(std::vector<std::string>& texts)
{
    std::vector<char*> all;
    for (std::string& text : texts)
        all.push_back(text.data());
    all.push_back(nullptr);
    return all;
}

class Runner {
public:
    explicit Runner(std::vector<std::string> environment) : environment_(std::move(environment)) {}

    /// Milliseconds from the start of the program to its end, its input written through a pipe meanwhile.
    double wall(const Command& command)
    {
        int ends[2] = {-1, -1};
        if (pipe2(ends, O_CLOEXEC) != 0) std::abort();
        const auto begin = Clock::now();
        const pid_t pid = start(command.arguments, ends[0]);
        close(ends[0]);
        for (std::size_t written = 0; written < command.input.size();) {
            const ssize_t count =
                write(ends[1], command.input.data() + written, command.input.size() - written);
            if (count <= 0) break;
            written += static_cast<std::size_t>(count);
        }
        close(ends[1]);
        waitpid(pid, nullptr, 0);
        return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
    }

    /// The most memory that was resident, in kB, as the kernel knows it just before the program's end.
    long peak(const Command& command, const std::string& inputFile)
    {
        auto arguments = command.arguments;
        const auto argumentBlock = pointers(arguments);
        const auto environmentBlock = pointers(environment_);
        const FileDescriptor input(open(inputFile.c_str(), O_RDONLY | O_CLOEXEC));
        const FileDescriptor nothing(open("/dev/null", O_RDWR | O_CLOEXEC));
        const pid_t pid = fork();
        if (pid == 0) {
            dup2(input.get(), STDIN_FILENO);
            dup2(nothing.get(), STDOUT_FILENO);
            ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            execvpe(argumentBlock[0], argumentBlock.data(), environmentBlock.data());
            _exit(127);
        }
        int status = 0;
        waitpid(pid, &status, 0); // after exec
        ptrace(PTRACE_SETOPTIONS, pid, 0, PTRACE_O_TRACEEXIT | PTRACE_O_EXITKILL);
        long kilobytes = 0;
        for (long signal = 0;;
             signal = WIFSTOPPED(status) && WSTOPSIG(status) != SIGTRAP ? WSTOPSIG(status) : 0) {
            ptrace(PTRACE_CONT, pid, 0, signal);
            if (waitpid(pid, &status, 0) != pid || !WIFSTOPPED(status)) return kilobytes;
            if (status >> 8 == (SIGTRAP | PTRACE_EVENT_EXIT << 8)) kilobytes = peakOf(pid);
        }
    }

    /// Machine instructions of the program itself; 0 when they cannot be counted.
    long instructions(const Command& command, const std::string& inputFile)
    {
        std::string line = "env -i";
        for (const std::string& variable : environment_)
            line += " '" + variable + "'";
        line += " valgrind --tool=callgrind --callgrind-out-file=/dev/null";
        for (const std::string& argument : command.arguments)
            line += " '" + argument + "'";
        line += " 2>&1 >/dev/null <'" + inputFile + "'";
        FILE* const output = popen(line.c_str(), "r");
        if (output == nullptr) return 0;
        std::string text;
        for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output))
            text += static_cast<char>(c);
        pclose(output);
        const auto at = text.find("Collected : ");
        return at == std::string::npos ? 0 : std::strtol(text.c_str() + at + 12, nullptr, 10);
    }

    pid_t start(std::vector<std::string> arguments, int input)
    {
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
        const auto argumentBlock = pointers(arguments);
        const auto environmentBlock = pointers(environment_);
        pid_t pid = -1;
        posix_spawnp(&pid, argumentBlock[0], &actions, nullptr, argumentBlock.data(),
                     environmentBlock.data());
        posix_spawn_file_actions_destroy(&actions);
        return pid;
    }

private:
    static long peakOf(pid_t pid)
    {
        std::ifstream status("/proc/" + std::to_string(pid) + "/status");
        for (std::string line; std::getline(status, line);)
            if (line.starts_with("VmHWM:")) return std::strtol(line.c_str() + 6, nullptr, 10);
        return 0;
    }

    std::vector<std::string> environment_;
};

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// The median of the ratios of each round, which a slow moment of the machine does not bend.
double ratio(const Command& command, const Command& to)
{
    std::vector<double> ratios;
    ratios.reserve(command.walls.size());
    for (std::size_t i = 0; i < command.walls.size(); ++i)
        ratios.push_back(command.walls[i] / to.walls[i]);
    return median(std::move(ratios));
}

/// What the hook writes to the bus, with as long a URL.
std::string messages()
{
    constexpr char busName[] = "org.freedesktop.DBus";
    constexpr char busPath[] = "/org/freedesktop/DBus";
    const std::string url = "chimewell://event?type=user_acted&provider=claude&" + std::string(100, 'x');
    const std::string user = std::to_string(geteuid());
    std::string text("\0AUTH EXTERNAL ", 15);
    for (const char digit : user)
        text.append("3").append(1, digit);
    return text + "\r\nBEGIN\r\n" +
           encode({.serial = 1,
                   .destination = busName,
                   .path = busPath,
                   .interface = busName,
                   .member = "Hello"}) +
           encode({.serial = 2,
                   .destination = applicationId,
                   .path = applicationObjectPath,
                   .interface = applicationInterface,
                   .member = openMethod,
                   .startsDestination = false,
                   .url = url}) +
           encode({.serial = 3,
                   .destination = busName,
                   .path = busPath,
                   .interface = busName,
                   .member = "GetId"});
}

std::vector<Command> commands(const std::string& socket, const std::string& messagesFile)
{
    const std::vector<std::string> hook = {CHIMEWELL_HOOK, "claude", "user_acted"};
    const std::vector<std::string> drop = {CHIMEWELL_READ_AND_DROP};
    std::vector<Command> all = {
        {.name = "spawn floor", .arguments = {CHIMEWELL_SPAWN_FLOOR}, .input = {}},
        {.name = "fixed sender",
         .arguments = {CHIMEWELL_FIXED_SENDER, socket, messagesFile},
         .input = payload(1000, false)},
        {.name = "notify-send",
         .arguments = {"notify-send", "Finished", "The agent finished responding and is idle."},
         .input = {}},
    };
    for (const auto& [name, size] : {std::pair{"1 KB", std::size_t{1000}},
                                     {"10 KB", std::size_t{10000}},
                                     {"100 KB", std::size_t{100000}},
                                     {"1 MB", std::size_t{1000000}},
                                     {"10 MB", std::size_t{10000000}}}) {
        const std::string bound = std::string("drop ") + name;
        all.push_back({.name = bound, .arguments = drop, .input = payload(size, false)});
        all.push_back({.name = std::string("hook ") + name,
                       .arguments = hook,
                       .input = payload(size, false),
                       .bound = bound});
        all.push_back({.name = std::string("hook ") + name + ", known last",
                       .arguments = hook,
                       .input = payload(size, true),
                       .bound = bound});
    }
    return all;
}

void report(const std::vector<Command>& all, Runner& runner, const std::string& inputFile)
{
    std::map<std::string, const Command*> byName;
    for (const Command& command : all)
        byName[command.name] = &command;
    std::printf("%-24s %9s %8s %8s %8s %13s %9s\n", "command", "wall ms", "x floor", "x sender", "x drop",
                "instructions", "peak kB");
    for (const Command& command : all) {
        std::ofstream(inputFile, std::ios::binary) << command.input;
        const auto bound = byName.find(command.bound);
        std::array<char, 32> ofBound{};
        if (bound != byName.end())
            std::snprintf(ofBound.data(), ofBound.size(), "%.2f", ratio(command, *bound->second));
        std::printf("%-24s %9.3f %8.2f %8.2f %8s %13ld %9ld\n", command.name.c_str(), median(command.walls),
                    ratio(command, *byName["spawn floor"]), ratio(command, *byName["fixed sender"]),
                    ofBound.data(), runner.instructions(command, inputFile), runner.peak(command, inputFile));
    }
}

/// What the program in the place of the application (open_recorder.cpp) tells, a line each.
class Records {
public:
    explicit Records(const std::string& file) : lines_((std::ofstream(file), file)) {}

    /// Waits for so many more; how many there were within thirty seconds.
    int take(int expected)
    {
        int taken = 0;
        const auto end = Clock::now() + 30s;
        do {
            taken += static_cast<int>(std::count(std::istreambuf_iterator<char>(lines_), {}, '\n'));
            std::this_thread::sleep_for(100us);
        } while (taken < expected && Clock::now() < end);
        return taken;
    }

private:
    std::ifstream lines_;
};

void reportDelivery(Records& records, Runner& runner)
{
    constexpr int calls = 10000;
    constexpr int batch = 16;
    const FileDescriptor nothing(open("/dev/null", O_RDONLY | O_CLOEXEC));
    int arrived = 0;
    for (int sent = 0; sent < calls; sent += batch) {
        for (int i = 0; i < batch; ++i)
            runner.start({CHIMEWELL_HOOK, "claude", "finished"}, nothing.get());
        for (int i = 0; i < batch; ++i)
            waitpid(-1, nullptr, 0);
        arrived += records.take(batch);
    }
    std::printf("delivered to a running application, %d at a time: %d of %d\n", batch, arrived, calls);
}

int compare(int rounds, const std::string& folder, const std::string& bus)
{
    std::signal(SIGPIPE, SIG_IGN);
    std::vector<std::string> environment = {"DBUS_SESSION_BUS_ADDRESS=" + bus, "HOME=" + folder,
                                            "PATH=/usr/local/bin:/usr/bin:/bin"};
    Runner runner(environment);
    Records records(folder + "/records");
    const FileDescriptor nothing(open("/dev/null", O_RDONLY | O_CLOEXEC));
    runner.start({CHIMEWELL_OPEN_RECORDER, folder + "/records"}, nothing.get());
    if (records.take(1) != 1) {
        std::fputs("nobody can take the application's name\n", stderr);
        return 1;
    }

    const auto block = pointers(environment);
    const std::string messagesFile = folder + "/messages";
    std::ofstream(messagesFile, std::ios::binary) << messages();
    auto all = commands(sessionBusSockets(Environment(block.data()), geteuid()).front(), messagesFile);
    std::vector<Command*> order;
    order.reserve(all.size());
    for (Command& command : all)
        order.push_back(&command);
    std::mt19937 random(1);
    for (int round = 0; round < rounds; ++round) {
        std::ranges::shuffle(order, random);
        for (Command* const command : order) {
            command->walls.push_back(runner.wall(*command));
            if (command->arguments[0] == CHIMEWELL_HOOK || command->arguments[0] == CHIMEWELL_FIXED_SENDER)
                records.take(1);
        }
    }
    report(all, runner, folder + "/input");
    std::this_thread::sleep_for(1s); // what the last of these have sent
    records.take(0);
    reportDelivery(records, runner);
    return 0;
}

}
}

int main(int argc, char** argv)
{
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 200;
    const char* const folder = std::getenv("HOME");
    const char* const bus = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (rounds > 0 && folder && bus) return chimewell::benchmarks::compare(rounds, folder, bus);
    std::fputs("Usage: desktop.py dbus-daemon -- bench_helper [ROUNDS]\n", stderr);
    return 2;
}
