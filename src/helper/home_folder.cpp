// SPDX-License-Identifier: MIT
#include "helper/home_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace chimewell {

namespace {

constexpr std::size_t maxBytes = std::size_t{1} << 20;

std::string contentOf(const char* file)
{
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

/// Takes what stands before `separator` off the front, and the separator.
std::string_view take(std::string_view& text, char separator)
{
    const std::size_t end = text.find(separator);
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return taken;
}

}

std::string homeFolder(const Environment& environment, unsigned int userId, const char* users)
{
    const std::string_view home = environment["HOME"];
    if (home.starts_with('/')) return std::string(home);
    const std::string content = contentOf(users);
    const std::string user = std::to_string(userId);
    for (std::string_view rest = content; !rest.empty();) {
        // name:password:user:group:comment:home:shell
        std::string_view line = take(rest, '\n');
        std::array<std::string_view, 6> fields;
        for (std::string_view& field : fields)
            field = take(line, ':');
        if (fields[2] == user) return fields[5].starts_with('/') ? std::string(fields[5]) : "/";
    }
    return "/";
}

}
