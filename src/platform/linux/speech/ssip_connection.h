// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/speech/ssip_protocol.h"
#include "platform/posix/file_descriptor.h"

#include <QSocketNotifier>
#include <QTimer>

#include <deque>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace chimewell {

/// A connection to a speech service through a local socket. It sends one command at a time; the service
/// answers each with one reply and reports events between the replies. Nothing blocks. The connection fails
/// when the service is silent for ten seconds while a command is unanswered, or sends anything else than the
/// protocol's lines.
class SsipConnection {
public:
    /// Called from the event loop only. They may close the connection and open it again, not destroy it.
    struct Handlers {
        /// Something happened to a message of ours. `message` is the service's number for it.
        std::function<void(int code, const std::string& message)> onEvent;
        /// The connection failed and is closed. Commands without a reply get none any more.
        std::function<void()> onFailed;
    };
    /// Gets every line of a reply. It may close the connection at the last line.
    using Reply = std::function<void(const SsipLine&)>;

    explicit SsipConnection(Handlers handlers);

    /// Opens the closed connection to the socket at `path`. False when no service accepts connections there.
    bool open(const std::filesystem::path& path);
    /// Drops what was not yet sent or read.
    void close();
    bool isOpen() const { return socket_.isOpen(); }

    /// Sends `command` once the commands before it were answered.
    void send(std::string_view command, Reply onReply);
    /// Sends `text` as the message that the service expects after SPEAK. Called in the reply to SPEAK only.
    void sendText(std::string_view text, Reply onReply);

private:
    struct Command {
        std::string bytes;
        Reply onReply;
    };

    void sendNext();
    void readBytes();
    void writeBytes();
    void handleLine(std::string_view text);
    void handleEvent(const SsipLine& line);
    void fail();

    Handlers handlers_;
    FileDescriptor socket_;
    QSocketNotifier readable_{QSocketNotifier::Read};
    QSocketNotifier writable_{QSocketNotifier::Write};
    unsigned connections_ = 0; // opened so far
    std::string incoming_;     // the beginning of a line
    std::string outgoing_;
    std::deque<Command> commands_; // oldest first, including the one that is being answered
    bool isAwaitingReply_ = false;
    std::string eventMessage_; // of the event whose lines are arriving
    QTimer replyTimeout_;
};

}
