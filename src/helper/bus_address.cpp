// SPDX-License-Identifier: MIT
#include "helper/bus_address.h"

#include <optional>

namespace chimewell {

namespace {

/// Takes from `text` what stands before `separator`, and the separator.
std::string_view takeUntil(std::string_view& text, char separator)
{
    const auto end = text.find(separator);
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return taken;
}

std::optional<unsigned char> hexDigit(char c)
{
    if (c >= '0' && c <= '9') return static_cast<unsigned char>(c - '0');
    if (c >= 'a' && c <= 'f') return static_cast<unsigned char>(c - 'a' + 10);
    if (c >= 'A' && c <= 'F') return static_cast<unsigned char>(c - 'A' + 10);
    return std::nullopt;
}

std::optional<std::string> unescape(std::string_view value)
{
    std::string text;
    while (!value.empty()) {
        if (value.front() != '%') {
            text += value.front();
            value.remove_prefix(1);
            continue;
        }
        if (value.size() < 3) return std::nullopt;
        const auto high = hexDigit(value[1]);
        const auto low = hexDigit(value[2]);
        if (!high || !low) return std::nullopt;
        text += static_cast<char>(*high << 4 | *low);
        value.remove_prefix(3);
    }
    return text;
}

/// The socket of one address, for example `unix:path=/run/user/1000/bus,guid=…`.
std::optional<std::string> socketOf(std::string_view address, std::string_view runtimeFolder)
{
    if (takeUntil(address, ':') != "unix") return std::nullopt;
    while (!address.empty()) {
        std::string_view value = takeUntil(address, ',');
        const std::string_view key = takeUntil(value, '=');
        auto text = unescape(value);
        if (!text) return std::nullopt;
        if (key == "path") return text;
        if (key == "abstract") return std::string(1, '\0') + *text;
        if (key == "runtime" && !runtimeFolder.empty()) return std::string(runtimeFolder) + "/bus";
    }
    return std::nullopt;
}

}

std::vector<std::string> sessionBusSockets(const Environment& environment, unsigned int userId)
{
    const std::string_view runtimeFolder = environment["XDG_RUNTIME_DIR"];
    std::string_view addresses = environment["DBUS_SESSION_BUS_ADDRESS"];
    if (addresses.empty()) {
        if (!runtimeFolder.empty()) return {std::string(runtimeFolder) + "/bus"};
        return {"/run/user/" + std::to_string(userId) + "/bus"};
    }
    std::vector<std::string> sockets;
    while (!addresses.empty())
        if (auto socket = socketOf(takeUntil(addresses, ';'), runtimeFolder))
            sockets.push_back(*std::move(socket));
    return sockets;
}

}
