// SPDX-License-Identifier: MIT
#include "helper/session_bus.h"

#include "base/percent.h"
#include "helper/bus_message.h"
#include "values/shared_names.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

namespace chimewell {

namespace {

constexpr std::string_view busName = "org.freedesktop.DBus";
constexpr std::string_view busPath = "/org/freedesktop/DBus";

constexpr std::uint32_t helloSerial = 1;
constexpr std::uint32_t openSerial = 2;
constexpr std::uint32_t questionSerial = 3;

constexpr std::string_view greetingEnd = "\r\n";
constexpr std::string_view accepted = "OK ";

/// The socket of one address, for example `unix:path=/run/user/1000/bus,guid=…`.
std::optional<std::string> socketOf(std::string_view address, std::string_view runtimeFolder)
{
    if (takeUntil(address, ':') != "unix") return std::nullopt;
    while (!address.empty()) {
        std::string_view value = takeUntil(address, ',');
        const std::string_view key = takeUntil(value, '=');
        auto text = strictlyPercentDecoded(value);
        if (!text) return std::nullopt;
        if (key == "path") return text;
        if (key == "abstract") return std::string(1, '\0') + *text;
        if (key == "runtime" && !runtimeFolder.empty()) return std::string(runtimeFolder) + "/bus";
    }
    return std::nullopt;
}

/// We say who we are (the socket proves it) and that we begin, without waiting to be believed.
std::string greeting()
{
    std::string text("\0AUTH EXTERNAL ", 15);
    for (const char digit : std::to_string(geteuid()))
        appendHexPair(text, digit);
    return text + "\r\nBEGIN\r\n";
}

std::string callToBus(std::uint32_t serial, std::string_view member)
{
    return encode(
        {.serial = serial, .destination = busName, .path = busPath, .interface = busName, .member = member});
}

std::string openUrl(std::string_view url, bool startsApplication)
{
    return encode({.serial = openSerial,
                   .destination = applicationId,
                   .path = applicationObjectPath,
                   .interface = applicationInterface,
                   .member = openMethod,
                   .startsDestination = startsApplication,
                   .url = url});
}

bool meansAbsent(std::string_view errorName)
{
    return errorName == "org.freedesktop.DBus.Error.ServiceUnknown" ||
           errorName == "org.freedesktop.DBus.Error.NameHasNoOwner";
}

bool wouldBlock(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
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

OpenCall::OpenCall(std::vector<std::string> sockets, std::string_view url, IfAbsent ifAbsent)
    : sockets_(std::move(sockets))
{
    const bool starts = ifAbsent == IfAbsent::start;
    outgoing_ = greeting() + callToBus(helloSerial, "Hello") + openUrl(url, starts);
    if (!starts) outgoing_ += callToBus(questionSerial, "GetId");
}

OpenCall::~OpenCall()
{
    if (descriptor_ >= 0) close(descriptor_);
}

OpenCall::Outcome OpenCall::proceed(Deadline deadline)
{
    using namespace std::chrono_literals;
    while (descriptor_ < 0) {
        const Connecting result = connect();
        if (result == Connecting::impossible) return Outcome::failed;
        if (result == Connecting::connected) break;
        if (std::chrono::steady_clock::now() >= deadline) return Outcome::pending;
        poll(nullptr, 0,
             5); // the bus's queue of new connections is full, and there is no event for when it is not
    }
    for (;;) {
        const short events = sent_ < outgoing_.size() ? POLLIN | POLLOUT : POLLIN;
        if (!waitFor(descriptor_, events, deadline)) return Outcome::pending;
        const bool isOpen = transfer();
        if (const auto outcome = readAnswers()) return *outcome;
        if (!isOpen) return Outcome::failed;
    }
}

OpenCall::Connecting OpenCall::connect()
{
    bool isBusy = false;
    for (const std::string& name : sockets_) {
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        if (name.size() >= sizeof address.sun_path) continue;
        std::memcpy(address.sun_path, name.data(), name.size());
        const bool isAbstract = name.starts_with('\0');
        const auto size =
            static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size() + (isAbstract ? 0 : 1));

        const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        if (descriptor < 0) return Connecting::impossible;
        // The sockets interface takes every kind of address by this one type.
        if (::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), size) == 0) {
            descriptor_ = descriptor;
            return Connecting::connected;
        }
        isBusy = isBusy || wouldBlock(errno);
        close(descriptor);
    }
    return isBusy ? Connecting::busy : Connecting::impossible;
}

bool OpenCall::transfer()
{
    while (sent_ < outgoing_.size()) {
        const ssize_t count =
            send(descriptor_, outgoing_.data() + sent_, outgoing_.size() - sent_, MSG_NOSIGNAL);
        if (count < 0) {
            if (!wouldBlock(errno)) return false;
            break;
        }
        sent_ += static_cast<std::size_t>(count);
    }
    std::array<char, 4096> buffer{};
    for (;;) {
        const ssize_t count = recv(descriptor_, buffer.data(), buffer.size(), 0);
        if (count == 0) return false;
        if (count < 0) return wouldBlock(errno);
        incoming_.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

std::optional<OpenCall::Outcome> OpenCall::readAnswers()
{
    if (!isAuthenticated_) {
        const auto end = incoming_.find(greetingEnd);
        if (end == std::string::npos) return std::nullopt;
        if (!incoming_.starts_with(accepted)) return Outcome::failed;
        incoming_.erase(0, end + greetingEnd.size());
        isAuthenticated_ = true;
    }
    for (;;) {
        const DecodedMessage decoded = decodeMessage(incoming_);
        if (decoded.state == DecodedMessage::State::incomplete) return std::nullopt;
        if (decoded.state == DecodedMessage::State::broken) return Outcome::failed;
        const BusMessage& message = decoded.message;
        const bool isError = message.kind == BusMessage::Kind::error;
        const bool isAnswer = isError || message.kind == BusMessage::Kind::methodReturn;
        if (isAnswer && message.replySerial == helloSerial && isError) return Outcome::failed;
        if (isAnswer && message.replySerial == openSerial)
            return isError && meansAbsent(message.errorName) ? Outcome::nobody : Outcome::taken;
        if (isAnswer && message.replySerial == questionSerial) return Outcome::taken;
        incoming_.erase(0, message.size);
    }
}

}
