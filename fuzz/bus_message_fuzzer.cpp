// SPDX-License-Identifier: MIT
// Whatever the bus sends: no more is read than there is, a message is complete only as a whole, and our own
// calls are whole messages whatever the URL.
#include "fuzzing.h"
#include "helper/bus_message.h"

#include <functional>
#include <string>

namespace chimewell::fuzz {

void check(std::string_view bytes)
{
    using State = DecodedMessage::State;
    const DecodedMessage decoded = decodeMessage(bytes);
    if (decoded.state == State::complete) {
        const BusMessage& message = decoded.message;
        require(message.size >= 16 && message.size <= bytes.size());
        const std::string_view name = message.errorName;
        require(name.empty() || (std::less_equal()(bytes.data(), name.data()) &&
                                 std::less_equal()(name.data() + name.size(), bytes.data() + message.size)));
        require(decodeMessage(bytes.substr(0, message.size - 1)).state == State::incomplete);
        require(decodeMessage(bytes.substr(0, message.size)).message.replySerial == message.replySerial);
    }

    const std::string call = encode({.serial = 2,
                                     .destination = "app.chimewell.Chimewell",
                                     .path = "/app/chimewell/Chimewell",
                                     .interface = "org.freedesktop.Application",
                                     .member = "Open",
                                     .url = bytes});
    const DecodedMessage own = decodeMessage(call);
    if (bytes.size() < 500'000) require(own.state == State::complete && own.message.size == call.size());
}

}
