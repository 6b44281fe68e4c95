// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/speech/line_socket.h"
#include "platform/linux/speech/ssip_protocol.h"

#include <QTimer>

#include <deque>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace chimewell {

/// The conversation with a speech service: one command at a time, each answered by one reply, with events
/// between them. A service that says nothing for ten seconds while a command is unanswered counts as gone.
class SsipConnection {
public:
    /// Called from the event loop only. They may close the connection and open it again, not destroy it.
    struct Handlers {
        /// Something happened to a message of ours; `message` is its number at the service.
        std::function<void(int code, const std::string& message)> onEvent;
        /// The service is gone. The connection is closed; commands without a reply get none any more.
        std::function<void()> onClosed;
    };
    /// Gets every line of a reply. It may close the connection at the last one.
    using Reply = std::function<void(const SsipLine&)>;

    explicit SsipConnection(Handlers handlers);

    /// False when no service listens at `path` now.
    bool open(const std::filesystem::path& path) { return socket_.connect(path); }
    void close();
    bool isOpen() const { return socket_.isOpen(); }

    /// Sends `command`, after those sent before were answered.
    void send(std::string_view command, Reply onReply);
    /// Sends `text` as the message that the service awaits after SPEAK. For the reply to SPEAK only.
    void sendText(std::string_view text, Reply onReply);

private:
    struct Command {
        std::string bytes;
        Reply onReply;
    };

    void sendNext();
    void handleLine(std::string_view text);
    void handleEvent(const SsipLine& line);
    void fail();

    Handlers handlers_;
    LineSocket socket_;
    std::deque<Command> commands_; // oldest first, the one that awaits its reply included
    bool isAwaitingReply_ = false;
    std::string eventMessage_; // of the event whose lines are arriving
    QTimer replyLimit_;
};

}
