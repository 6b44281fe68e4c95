// SPDX-License-Identifier: MIT
#include "platform/linux/speech/line_socket.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <utility>

namespace chimewell {
namespace {

constexpr std::size_t maxLineBytes = std::size_t{16} << 10;

bool isTemporary(int error)
{
    return error == EAGAIN || error == EINTR;
}

}

LineSocket::LineSocket(Handlers handlers) : handlers_(std::move(handlers))
{
    QObject::connect(&readable_, &QSocketNotifier::activated, &readable_, [this] { readSome(); });
    QObject::connect(&writable_, &QSocketNotifier::activated, &writable_, [this] { writeSome(); });
}

bool LineSocket::connect(const std::filesystem::path& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string& name = path.native();
    if (name.empty() || name.size() >= sizeof address.sun_path) return false;
    std::memcpy(&address.sun_path, name.c_str(), name.size() + 1);

    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!socket.isOpen()) return false;
    // A local connection is made at once or not at all, also where the service has too many waiting.
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

void LineSocket::close()
{
    readable_.setEnabled(false);
    writable_.setEnabled(false);
    socket_ = FileDescriptor();
    incoming_.clear();
    outgoing_.clear();
}

void LineSocket::write(std::string_view bytes)
{
    if (!isOpen()) return;
    outgoing_ += bytes;
    if (!writable_.isEnabled()) writeSome();
}

void LineSocket::writeSome()
{
    while (!outgoing_.empty()) {
        const ssize_t sent = ::send(socket_.get(), outgoing_.data(), outgoing_.size(), MSG_NOSIGNAL);
        if (sent < 0) {
            // A failure that lasts also ends what can be read, and is noticed there.
            writable_.setEnabled(isTemporary(errno));
            return;
        }
        outgoing_.erase(0, static_cast<std::size_t>(sent));
    }
    writable_.setEnabled(false);
}

void LineSocket::readSome()
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
        handlers_.onLine(line);
        if (!isOpen() || connections_ != connection) return; // the rest is of the past
    }
}

void LineSocket::fail()
{
    close();
    handlers_.onClosed();
}

}
