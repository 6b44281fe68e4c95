// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// A method call without a body, or with the one of `openCall`, in D-Bus's binary form.
struct BusCall {
    std::uint32_t serial = 0; ///< Not 0; the reply names it.
    std::string_view destination;
    std::string_view path;
    std::string_view interface;
    std::string_view member;
    bool startsDestination =
        true; ///< Whether the bus may start a program that offers the destination's name.
    std::optional<std::string_view> url = std::nullopt; ///< The body of org.freedesktop.Application's Open.
};

std::string encode(const BusCall& call);

/// What we read of a message from the bus.
struct BusMessage {
    enum class Kind : std::uint8_t { methodReturn, error, other };
    Kind kind = Kind::other;
    std::uint32_t replySerial = 0; ///< 0 if it is no reply.
    std::string_view errorName;    ///< Within the bytes that were decoded.
    std::size_t size = 0;          ///< Bytes that the message takes.
};

/// The message at the beginning of some bytes.
struct DecodedMessage {
    enum class State : std::uint8_t { complete, incomplete, broken };
    State state = State::incomplete;
    BusMessage message = {}; ///< If complete.
};

/// Of a byte order not our own, or larger than 1 MiB, counts as broken: the bus sends us nothing of the kind.
DecodedMessage decodeMessage(std::string_view bytes);

}
