// SPDX-License-Identifier: MIT
// hooks_benchmark HOOK_DRIVER: installs into Claude Code's settings of three sizes, beside the least that a
// careful writer has to do (read the file, write it twice, flush both to the disk), and the peak memory of a
// process that does it.
#include "agent_inputs.h"

#include "hooks/json_hook_installer.h"
#include "platform/posix/installed_resources.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/xdg_user_folders.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using namespace chimewell;
namespace fs = std::filesystem;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::array<std::size_t, 3> sizes = {10'000, 1'000'000, 50'000'000};
constexpr char helper[] = "/opt/chimewell/chimewell-hook";

void require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "hooks_benchmark: %s\n", what);
    std::exit(1);
}

template<class Action>
double millisecondsOf(Action action)
{
    const auto begin = std::chrono::steady_clock::now();
    action();
    return Milliseconds(std::chrono::steady_clock::now() - begin).count();
}

double median(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

/// Of the driver, in bytes, while it performs `action`.
long peakOf(const char* driver, const char* action)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(::open("/dev/null", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
        ::execl(driver, driver, "claude", helper, action, static_cast<char*>(nullptr));
        ::_exit(127);
    }
    int status = 0;
    struct rusage usage = {};
    require(::wait4(child, &status, 0, &usage) == child && status == 0, "the driver failed");
    return usage.ru_maxrss * 1024; // Linux counts it in kB
}

void measure(std::size_t size, int rounds, const fs::path& home, const char* driver)
{
    PosixFiles files;
    const PosixClock clock;
    const XdgUserFolders folders;
    const InstalledResources resources({});
    ClaudeHookInstaller installer(
        {.files = files, .clock = clock, .folders = folders, .resources = resources});
    installer.helperPathOverride = helper;
    const fs::path file = installer.settingsFileURL();
    const std::string text = benchmarks::settingsText(size);

    std::vector<double> floor;
    std::vector<double> install;
    std::vector<double> uninstall;
    std::vector<double> status;
    for (int i = 0; i < rounds; ++i) {
        require(files.createFolders(file.parent_path()) && files.replace(file, text), "cannot write");
        floor.push_back(millisecondsOf([&] {
            const auto read = files.read(file);
            require(read && files.replace(home / "copy", *read) && files.replace(home / "new", *read),
                    "cannot write");
        }));
        install.push_back(millisecondsOf([&] { require(installer.install().has_value(), "not installed"); }));
        status.push_back(millisecondsOf([&] {
            require(installer.status().kind == HookInstallStatus::Kind::installed, "not installed");
        }));
        uninstall.push_back(
            millisecondsOf([&] { require(installer.uninstall().has_value(), "not uninstalled"); }));
    }
    const double peak = static_cast<double>(peakOf(driver, "install")) / static_cast<double>(text.size());
    std::printf("%10zu %10.2f %10.2f %10.2f %10.2f %10.2f\n", text.size(), median(floor), median(install),
                median(status), median(uninstall), peak);
    fs::remove_all(file.parent_path());
}

}

int main(int argc, char** argv)
{
    require(argc >= 2, "where is the driver?");
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 31;
    const char* base = ::getenv("TMPDIR");
    std::string folder = std::string(base ? base : "/var/tmp") + "/chimewell-benchmark.XXXXXX";
    require(::mkdtemp(folder.data()), "cannot make a folder");
    require(::setenv("HOME", folder.c_str(), 1) == 0, "cannot set HOME");
    std::puts("     bytes   floor ms install ms  status ms uninst. ms  peak/size");
    for (const std::size_t size : sizes)
        measure(size, size > 10'000'000 ? std::min(rounds, 5) : rounds, folder, argv[1]);
    fs::remove_all(folder);
    return 0;
}
