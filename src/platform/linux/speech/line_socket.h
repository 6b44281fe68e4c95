// SPDX-License-Identifier: MIT
#pragma once

#include "platform/posix/file_descriptor.h"

#include <QSocketNotifier>

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace chimewell {

/// A local stream socket to a service that speaks in lines. Nothing blocks.
class LineSocket {
public:
    /// Called from the event loop only. They may close the socket and connect it again, not destroy it.
    struct Handlers {
        /// A line arrived, without its break (CRLF or LF).
        std::function<void(std::string_view)> onLine;
        /// The other side is gone, or wrote a line of more than 16 KiB. The socket is closed.
        std::function<void()> onClosed;
    };

    explicit LineSocket(Handlers handlers);

    /// Connects the closed socket to the one at `path`. False when nobody takes connections there now.
    bool connect(const std::filesystem::path& path);
    /// What was not yet sent or read is dropped.
    void close();
    bool isOpen() const { return socket_.isOpen(); }

    /// Sent in order, as fast as the other side reads; the rest waits in memory.
    void write(std::string_view bytes);

private:
    void readSome();
    void writeSome();
    void fail();

    Handlers handlers_;
    FileDescriptor socket_;
    QSocketNotifier readable_{QSocketNotifier::Read};
    QSocketNotifier writable_{QSocketNotifier::Write};
    unsigned connections_ = 0; // made so far
    std::string incoming_;     // the beginning of a line
    std::string outgoing_;
};

}
