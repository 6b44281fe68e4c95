// SPDX-License-Identifier: MIT
#include "platform/linux/speech/ssip_connection.h"

#include <chrono>
#include <optional>
#include <utility>

namespace chimewell {
namespace {

constexpr std::chrono::seconds replyLimit(10);

}

SsipConnection::SsipConnection(Handlers handlers)
    : handlers_(std::move(handlers)),
      socket_({.onLine = [this](std::string_view line) { handleLine(line); }, .onClosed = [this] { fail(); }})
{
    replyLimit_.setSingleShot(true);
    replyLimit_.setInterval(replyLimit);
    QObject::connect(&replyLimit_, &QTimer::timeout, &replyLimit_, [this] { fail(); });
}

void SsipConnection::close()
{
    socket_.close();
    commands_.clear();
    isAwaitingReply_ = false;
    eventMessage_.clear();
    replyLimit_.stop();
}

void SsipConnection::send(std::string_view command, Reply onReply)
{
    commands_.push_back({.bytes = std::string(command) + "\r\n", .onReply = std::move(onReply)});
    sendNext();
}

void SsipConnection::sendText(std::string_view text, Reply onReply)
{
    // The service takes whatever comes next for the message, so it goes ahead of other commands.
    commands_.push_front({.bytes = ssipTextBlock(text), .onReply = std::move(onReply)});
    sendNext();
}

void SsipConnection::sendNext()
{
    if (isAwaitingReply_ || commands_.empty()) return;
    isAwaitingReply_ = true;
    replyLimit_.start();
    socket_.write(std::exchange(commands_.front().bytes, {}));
}

void SsipConnection::handleLine(std::string_view text)
{
    const std::optional<SsipLine> line = parseSsipLine(text);
    if (!line) return fail();
    if (line->isEvent()) return handleEvent(*line);
    if (!isAwaitingReply_) return;
    if (!line->isLast) {
        replyLimit_.start(); // a reply of thousands of lines may take a busy machine a while
        return commands_.front().onReply(*line);
    }
    const Reply onReply = std::move(commands_.front().onReply);
    commands_.pop_front();
    isAwaitingReply_ = false;
    replyLimit_.stop();
    onReply(*line);
    sendNext();
}

void SsipConnection::handleEvent(const SsipLine& line)
{
    // The message's number, then the client's, then the event's name.
    if (!line.isLast) {
        if (eventMessage_.empty()) eventMessage_ = line.text;
        return;
    }
    handlers_.onEvent(line.code, std::exchange(eventMessage_, {}));
}

void SsipConnection::fail()
{
    close();
    handlers_.onClosed();
}

}
