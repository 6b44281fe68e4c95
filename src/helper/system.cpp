// SPDX-License-Identifier: MIT
#include "helper/system.h"

#include "values/terminal_application.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>

namespace chimewell {

namespace {

std::string contentOf(const char* file)
{
    constexpr std::size_t maxBytes = std::size_t{1} << 20;
    std::string content;
    const int descriptor = open(file, O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return content;
    std::array<char, 4096> buffer;
    while (content.size() < maxBytes) {
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count <= 0) break;
        content.append(buffer.data(), static_cast<std::size_t>(count));
    }
    close(descriptor);
    return content;
}

/// Cursor's own terminal calls itself "vscode", and to bring VS Code to the front would be wrong.
bool isTerminalOfCursor(const Environment& environment)
{
    return !environment["CURSOR_TRACE_ID"].empty() ||
           environment["VSCODE_GIT_ASKPASS_NODE"].find("Cursor") != std::string_view::npos;
}

/// A name that the application knows; any other does not compile.
consteval std::string_view known(std::string_view terminal)
{
    return findTerminalApplication(terminal)->term;
}

}

std::string_view Environment::operator[](std::string_view name) const
{
    for (const char* const* entry = block_; *entry != nullptr; ++entry) {
        const std::string_view text(*entry);
        if (text.size() > name.size() && text[name.size()] == '=' && text.starts_with(name))
            return text.substr(name.size() + 1);
    }
    return {};
}

std::string homeFolder(const Environment& environment, unsigned int userId, const char* users)
{
    const std::string_view home = environment["HOME"];
    if (home.starts_with('/')) return std::string(home);
    const std::string content = contentOf(users);
    const std::string user = std::to_string(userId);
    for (std::string_view rest = content; !rest.empty();) {
        // name:password:user:group:comment:home:shell
        std::string_view line = takeUntil(rest, '\n');
        std::array<std::string_view, 6> fields;
        for (std::string_view& field : fields)
            field = takeUntil(line, ':');
        if (fields[2] == user) return fields[5].starts_with('/') ? std::string(fields[5]) : "/";
    }
    return "/";
}

std::string_view terminalOf(const Environment& environment)
{
    // First, because a terminal that names itself may be started from, and inherit the marks of, one that
    // does not.
    const std::string_view program = environment["TERM_PROGRAM"];
    if (program == known("vscode") && isTerminalOfCursor(environment)) return {};
    if (!program.empty() && program != "tmux" && program != "screen") return program;

    const std::string_view type = environment["TERM"];
    const auto has = [&](std::string_view name) { return !environment[name].empty(); };
    if (has("KITTY_WINDOW_ID") || type == "xterm-kitty") return known("kitty");
    if (has("ALACRITTY_WINDOW_ID") || has("ALACRITTY_SOCKET") || type.starts_with("alacritty"))
        return known("Alacritty");
    if (has("WEZTERM_PANE")) return known("WezTerm");
    if (has("GHOSTTY_RESOURCES_DIR") || type == "xterm-ghostty") return known("ghostty");
    if (has("ITERM_SESSION_ID") || environment["LC_TERMINAL"] == "iTerm2") return known("iTerm.app");
    return {};
}

std::string_view takeUntil(std::string_view& text, char separator)
{
    const auto end = text.find(separator);
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return taken;
}

bool waitFor(int descriptor, short events, Deadline deadline)
{
    for (;;) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) return false;
        pollfd entry{.fd = descriptor, .events = events, .revents = 0};
        const int ready = poll(&entry, 1, static_cast<int>(left.count()));
        if (ready > 0) return true;
        if (ready == 0 || errno != EINTR) return false;
    }
}

}
