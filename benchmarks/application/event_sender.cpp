// SPDX-License-Identifier: MIT
#include "event_sender.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <vector>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace chimewell::benchmark {

namespace {

constexpr std::size_t urlSize = 600;
constexpr std::size_t maxUnanswered = 64;

[[noreturn]] void giveUp(const char* what)
{
    std::fprintf(stderr, "session bus: %s\n", what);
    std::exit(1);
}

/// The wire format of D-Bus, little endian, as far as our two calls need it (D-Bus 1.0, freedesktop.org,
/// "Marshaling" and "Message Format").
class Marshalled {
public:
    void byte(char value) { bytes_ += value; }
    void number(std::uint32_t value)
    {
        align(4);
        for (int shift = 0; shift < 32; shift += 8)
            bytes_ += static_cast<char>(value >> shift & 0xFFU);
    }
    void text(std::string_view value)
    {
        number(static_cast<std::uint32_t>(value.size()));
        bytes_.append(value).push_back('\0');
    }
    void signature(std::string_view value)
    {
        byte(static_cast<char>(value.size()));
        bytes_.append(value).push_back('\0');
    }
    void field(char code, char type, std::string_view value)
    {
        align(8);
        byte(code);
        signature({&type, 1});
        type == 'g' ? signature(value) : text(value);
    }
    void align(std::size_t size)
    {
        while (bytes_.size() % size != 0)
            bytes_ += '\0';
    }
    const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_;
};

struct Destination {
    const char* name;
    const char* path;
    const char* interface;
    const char* member;
};

std::string methodCall(const Destination& to, std::uint32_t serial, const char* signature,
                       std::string_view body)
{
    Marshalled fields;
    fields.field(1, 'o', to.path);
    fields.field(2, 's', to.interface);
    fields.field(3, 's', to.member);
    fields.field(6, 's', to.name);
    if (!body.empty()) fields.field(8, 'g', signature);

    constexpr char methodCallType = 1;
    constexpr char noAutoStart = 2;
    constexpr char protocolVersion = 1;
    Marshalled message;
    for (const char value : {'l', methodCallType, noAutoStart, protocolVersion})
        message.byte(value);
    message.number(static_cast<std::uint32_t>(body.size()));
    message.number(serial);
    message.number(static_cast<std::uint32_t>(fields.bytes().size()));
    // The fields begin at byte 16, so their own alignment holds in the message.
    std::string bytes = message.bytes() + fields.bytes();
    bytes.resize((bytes.size() + 7) / 8 * 8);
    return bytes.append(body);
}

std::uint32_t numberAt(const std::string& bytes, std::size_t at)
{
    std::uint32_t value = 0;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

}

std::string eventUrl(std::string_view type)
{
    static std::atomic<unsigned> sessions = 0;
    std::array<char, 37> session{};
    std::snprintf(session.data(), session.size(), "%08x-5eed-4000-8000-00c0ffee0000", ++sessions);
    std::string url = "chimewell://event?type=" + std::string(type) +
                      "&provider=claude&session=" + session.data() +
                      "&cwd=%2Fhome%2Fdev%2Fsrc%2Fproject&term=xterm&ts=1763850000&v=1&message=";
    constexpr std::string_view sentence = "All%20tests%20pass.%20";
    while (url.size() + sentence.size() <= urlSize)
        url += sentence;
    url.resize(urlSize, '.');
    return url;
}

EventSender::EventSender()
{
    const char* const address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    constexpr std::string_view prefix = "unix:path=";
    if (!address || !std::string_view(address).starts_with(prefix)) giveUp("no address of a socket");
    std::string_view path = std::string_view(address).substr(prefix.size());
    path = path.substr(0, path.find_first_of(",;"));

    sockaddr_un where{.sun_family = AF_UNIX, .sun_path = {}};
    if (path.size() >= sizeof where.sun_path) giveUp("its address is too long");
    path.copy(where.sun_path, path.size());
    socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(socket_, reinterpret_cast<const sockaddr*>(&where), sizeof where) != 0)
        giveUp("cannot connect");
    authenticate();
}

EventSender::~EventSender()
{
    close(socket_);
}

void EventSender::authenticate()
{
    std::string user;
    for (const char digit : std::to_string(getuid())) {
        user += '3'; // the hexadecimal form of an ASCII digit
        user += digit;
    }
    write(std::string(1, '\0') + "AUTH EXTERNAL " + user + "\r\n");
    std::array<char, 256> answer{};
    if (read(socket_, answer.data(), answer.size()) < 2 || !std::string_view(answer.data()).starts_with("OK"))
        giveUp("refused to authenticate us");
    constexpr Destination hello{.name = "org.freedesktop.DBus",
                                .path = "/org/freedesktop/DBus",
                                .interface = "org.freedesktop.DBus",
                                .member = "Hello"};
    write("BEGIN\r\n" + methodCall(hello, ++serial_, "", {}));
    ++sent_;
    awaitAnswers();
    sent_ = accepted_ = 0;
}

void EventSender::open(std::string_view url)
{
    constexpr Destination application{.name = "app.chimewell.Chimewell",
                                      .path = "/app/chimewell/Chimewell",
                                      .interface = "org.freedesktop.Application",
                                      .member = "Open"};
    Marshalled urls;
    urls.text(url);
    Marshalled body;
    body.number(static_cast<std::uint32_t>(urls.bytes().size()));
    body.text(url);
    body.number(0); // no platform data
    body.align(8);
    write(methodCall(application, ++serial_, "asa{sv}", body.bytes()));
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

    constexpr std::size_t headerSize = 16;
    std::size_t at = 0;
    while (received_.size() - at >= headerSize) {
        const std::size_t fields = (numberAt(received_, at + 12) + 7) / 8 * 8;
        const std::size_t length = headerSize + fields + numberAt(received_, at + 4);
        if (received_.size() - at < length) break;
        constexpr char methodReturn = 2;
        constexpr char error = 3;
        if (received_[at + 1] == methodReturn) ++accepted_;
        if (received_[at + 1] == error) ++refused_;
        at += length;
    }
    received_.erase(0, at);
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
    std::deque<EventSender> connections(senders);
    std::vector<pollfd> waits;
    for (const EventSender& sender : connections)
        waits.push_back({.fd = sender.descriptor(), .events = POLLIN, .revents = 0});

    const auto started = std::chrono::steady_clock::now();
    StormResult result;
    for (std::size_t sent = 0, answered = 0; answered < events;) {
        for (EventSender& sender : connections)
            while (sent < events && sender.unanswered() < maxUnanswered) {
                sender.open(eventUrl("finished"));
                ++sent;
            }
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
