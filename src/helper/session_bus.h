// SPDX-License-Identifier: MIT
#pragma once

#include "helper/system.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// The sockets at which the session bus may be reached, in the order in which to try them: those of
/// DBUS_SESSION_BUS_ADDRESS, or if that is not set the one in the user's runtime folder. A name that begins
/// with NUL is an abstract one. Transports other than Unix sockets, and what cannot be understood, are passed
/// over.
std::vector<std::string> sessionBusSockets(const Environment& environment, unsigned int userId);

/// One call that opens a URL in the application, over a connection to the session bus of its own. Greeting,
/// call and, behind it, a question to the bus itself leave in one write. The bus works in order, so its
/// answer says that the call is with it, and the connection may go, without a word of the application: that
/// may be slow or stopped, and gets the call later.
class OpenCall {
public:
    enum class Outcome {
        taken,   ///< It will arrive, or the application refused it.
        nobody,  ///< The application is not there.
        failed,  ///< There is no bus, or none that talks to us.
        pending, ///< The deadline came first; `proceed` continues the call.
    };
    enum class IfAbsent {
        giveUp,
        /// The bus starts the application, with the bus's own environment. What the call waits for is then
        /// the application's answer: dbus-daemon forgets calls for a starting program when their sender
        /// leaves.
        start,
    };

    /// `sockets` as by `sessionBusSockets`.
    OpenCall(std::vector<std::string> sockets, std::string_view url, IfAbsent ifAbsent);
    ~OpenCall();
    OpenCall(const OpenCall&) = delete;
    OpenCall& operator=(const OpenCall&) = delete;

    Outcome proceed(Deadline deadline);
    /// -1 while there is no connection.
    int descriptor() const { return descriptor_; }

private:
    enum class Connecting { connected, busy, impossible };

    Connecting connect();
    /// Sends and receives what can be without waiting.
    bool transfer();
    /// Reads what has arrived; nothing while the outcome is open.
    std::optional<Outcome> readAnswers();

    std::vector<std::string> sockets_;
    int descriptor_ = -1;
    std::string outgoing_;
    std::size_t sent_ = 0;
    std::string incoming_;
    bool isAuthenticated_ = false;
};

}
