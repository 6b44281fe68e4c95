// SPDX-License-Identifier: MIT
#include "platform/linux/speech/ssip_connection.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <optional>
#include <utility>

#include <sys/socket.h>
#include <sys/un.h>

namespace chimewell {
namespace {

constexpr std::chrono::seconds replyTimeout(10);
constexpr std::size_t maxLineBytes = std::size_t{16} << 10;

bool isTemporary(int error)
{
    return error == EAGAIN || error == EINTR;
}

}

SsipConnection::SsipConnection(Handlers handlers) : handlers_(std::move(handlers))
{
    QObject::connect(&readable_, &QSocketNotifier::activated, &readable_, [this] { readBytes(); });
    QObject::connect(&writable_, &QSocketNotifier::activated, &writable_, [this] { writeBytes(); });
    replyTimeout_.setSingleShot(true);
    replyTimeout_.setInterval(replyTimeout);
    QObject::connect(&replyTimeout_, &QTimer::timeout, &replyTimeout_, [this] { fail(); });
}

bool SsipConnection::open(const std::filesystem::path& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string& name = path.native();
    if (name.empty() || name.size() >= sizeof address.sun_path) return false;
    std::memcpy(&address.sun_path, name.c_str(), name.size() + 1);

    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!socket.isOpen()) return false;
    // A local connection succeeds at once or fails, also where too many wait to be accepted.
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return false;
    socket_ = std::move(socket);
    ++connections_;
    writable_.setSocket(socket_.get());
    writable_.setEnabled(false);
    readable_.setSocket(socket_.get());
    readable_.setEnabled(true);
    return true;
}

void SsipConnection::close()
{
    readable_.setEnabled(false);
    writable_.setEnabled(false);
    socket_ = FileDescriptor();
    incoming_.clear();
    outgoing_.clear();
    commands_.clear();
    isAwaitingReply_ = false;
    eventMessage_.clear();
    replyTimeout_.stop();
}

void SsipConnection::send(std::string_view command, Reply onReply)
{
    commands_.push_back({.bytes = std::string(command) + "\r\n", .onReply = std::move(onReply)});
    sendNext();
}

void SsipConnection::sendText(std::string_view text, Reply onReply)
{
    // The service takes whatever comes next as the message, so it must precede other commands.
    commands_.push_front({.bytes = ssipTextBlock(text), .onReply = std::move(onReply)});
    sendNext();
}

void SsipConnection::sendNext()
{
    if (isAwaitingReply_ || commands_.empty()) return;
    isAwaitingReply_ = true;
    replyTimeout_.start();
    outgoing_ += std::exchange(commands_.front().bytes, {});
    if (!writable_.isEnabled()) writeBytes();
}

void SsipConnection::writeBytes()
{
    while (!outgoing_.empty()) {
        const ssize_t sent = ::send(socket_.get(), outgoing_.data(), outgoing_.size(), MSG_NOSIGNAL);
        if (sent < 0) {
            // Reading notices an error that is not temporary.
            writable_.setEnabled(isTemporary(errno));
            return;
        }
        outgoing_.erase(0, static_cast<std::size_t>(sent));
    }
    writable_.setEnabled(false);
}

void SsipConnection::readBytes()
{
    std::array<char, std::size_t{32} << 10> buffer;
    const ssize_t size = ::recv(socket_.get(), buffer.data(), buffer.size(), 0);
    if (size < 0 && isTemporary(errno)) return;
    if (size <= 0) return fail();

    std::string_view bytes(buffer.data(), static_cast<std::size_t>(size));
    const unsigned connection = connections_;
    for (;;) {
        const std::size_t end = bytes.find('\n');
        incoming_ += bytes.substr(0, end);
        if (incoming_.size() > maxLineBytes) return fail();
        if (end == std::string_view::npos) return;
        bytes.remove_prefix(end + 1);
        std::string line = std::exchange(incoming_, {});
        if (line.ends_with('\r')) line.pop_back();
        handleLine(line);
        if (!isOpen() || connections_ != connection) return; // a handler closed the connection
    }
}

void SsipConnection::handleLine(std::string_view text)
{
    const std::optional<SsipLine> line = parseSsipLine(text);
    if (!line) return fail();
    if (line->isEvent()) return handleEvent(*line);
    if (!isAwaitingReply_) return;
    if (!line->isLast) {
        replyTimeout_.start(); // a reply of thousands of lines may take a busy machine a while
        return commands_.front().onReply(*line);
    }
    const Reply onReply = std::move(commands_.front().onReply);
    commands_.pop_front();
    isAwaitingReply_ = false;
    replyTimeout_.stop();
    onReply(*line);
    sendNext();
}

void SsipConnection::handleEvent(const SsipLine& line)
{
    // The first line has the message's number, the second one the client's.
    if (!line.isLast) {
        if (eventMessage_.empty()) eventMessage_ = line.text;
        return;
    }
    handlers_.onEvent(line.code, std::exchange(eventMessage_, {}));
}

void SsipConnection::fail()
{
    close();
    handlers_.onFailed();
}

}
