// SPDX-License-Identifier: MIT
#include "event_sender.h"

#include "agent_inputs.h"
#include "helper/bus_message.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <vector>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace chimewell::benchmarks {
namespace {

constexpr std::size_t maxUnanswered = 64;

[[noreturn]] void giveUp(const char* what)
{
    std::fprintf(stderr, "session bus: %s\n", what);
    std::exit(1);
}

}

EventSender::EventSender() : socket_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    const std::string_view address = std::getenv("DBUS_SESSION_BUS_ADDRESS"); // desktop.py's, "unix:path=..."
    const std::string_view path = address.substr(address.find('=') + 1);
    sockaddr_un where{.sun_family = AF_UNIX, .sun_path = {}};
    path.copy(where.sun_path, sizeof where.sun_path - 1);
    if (connect(socket_, reinterpret_cast<const sockaddr*>(&where), sizeof where) != 0)
        giveUp("cannot connect");

    std::string user;
    for (const char digit : std::to_string(getuid())) {
        user += '3'; // the hexadecimal form of an ASCII digit
        user += digit;
    }
    write(std::string(1, '\0') + "AUTH EXTERNAL " + user + "\r\n");
    std::array<char, 256> answer{};
    if (read(socket_, answer.data(), answer.size()) < 2 || !std::string_view(answer.data()).starts_with("OK"))
        giveUp("refused to authenticate us");
    write("BEGIN\r\n" + encode({.serial = ++serial_,
                                .destination = "org.freedesktop.DBus",
                                .path = "/org/freedesktop/DBus",
                                .interface = "org.freedesktop.DBus",
                                .member = "Hello"}));
    ++sent_;
    awaitAnswers();
    sent_ = accepted_ = 0;
}

EventSender::~EventSender()
{
    close(socket_);
}

void EventSender::open(std::string_view url)
{
    write(encode({.serial = ++serial_,
                  .destination = "app.chimewell.Chimewell",
                  .path = "/app/chimewell/Chimewell",
                  .interface = "org.freedesktop.Application",
                  .member = "Open",
                  .startsDestination = false,
                  .url = url}));
    ++sent_;
}

void EventSender::write(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const ssize_t written = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (written < 0) giveUp("closed the connection");
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void EventSender::takeAnswers()
{
    std::array<char, 16384> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): read into
    ssize_t size = 0;
    while ((size = recv(socket_, buffer.data(), buffer.size(), MSG_DONTWAIT)) > 0)
        received_.append(buffer.data(), static_cast<std::size_t>(size));
    if (size == 0) giveUp("closed the connection");

    std::string_view rest = received_;
    for (DecodedMessage next = decodeMessage(rest); next.state == DecodedMessage::State::complete;
         next = decodeMessage(rest)) {
        if (next.message.kind == BusMessage::Kind::methodReturn) ++accepted_;
        if (next.message.kind == BusMessage::Kind::error) ++refused_;
        rest.remove_prefix(next.message.size);
    }
    received_.erase(0, received_.size() - rest.size());
}

void EventSender::awaitAnswers()
{
    while (unanswered() > 0) {
        pollfd wait{.fd = socket_, .events = POLLIN, .revents = 0};
        if (poll(&wait, 1, 10'000) != 1) giveUp("does not answer");
        takeAnswers();
    }
}

StormResult storm(std::size_t events, std::size_t senders)
{
    static std::size_t sessions = 0;
    std::deque<EventSender> connections(senders);
    std::vector<pollfd> waits;
    for (const EventSender& sender : connections)
        waits.push_back({.fd = sender.descriptor(), .events = POLLIN, .revents = 0});

    const auto started = std::chrono::steady_clock::now();
    StormResult result;
    for (std::size_t sent = 0, answered = 0; answered < events;) {
        for (EventSender& sender : connections)
            for (; sent < events && sender.unanswered() < maxUnanswered; ++sent)
                sender.open(eventUrl("finished", ++sessions));
        if (poll(waits.data(), waits.size(), 10'000) < 1) break;
        answered = result.accepted = 0;
        for (EventSender& sender : connections) {
            sender.takeAnswers();
            result.accepted += sender.accepted();
            answered += sender.accepted() + sender.refused();
        }
    }
    result.took = std::chrono::steady_clock::now() - started;
    return result;
}

}
