// SPDX-License-Identifier: MIT
#include "helper/bus_message.h"

#include <bit>
#include <cstring>

// The layout is the one of D-Bus 1.0, freedesktop.org, chapter "Message Protocol".

namespace chimewell {

namespace {

constexpr char ourByteOrder = std::endian::native == std::endian::little ? 'l' : 'B';
constexpr std::size_t fixedHeaderSize = 16; // with the length of the fields
constexpr std::size_t maxMessageSize = 1 << 20;

enum class Field : std::uint8_t {
    path = 1,
    interface = 2,
    member = 3,
    errorName = 4,
    replySerial = 5,
    destination = 6,
    signature = 8,
};

constexpr std::size_t aligned(std::size_t position, std::size_t alignment)
{
    return (position + alignment - 1) / alignment * alignment;
}

class Writer {
public:
    void align(std::size_t alignment) { bytes_.resize(aligned(bytes_.size(), alignment)); }
    void byte(char value) { bytes_ += value; }
    void number(std::uint32_t value)
    {
        align(4);
        bytes_.append(sizeof value, '\0');
        set(bytes_.size() - sizeof value, value);
    }
    void set(std::size_t position, std::uint32_t value)
    {
        std::memcpy(&bytes_[position], &value, sizeof value);
    }
    void text(std::string_view value)
    {
        number(static_cast<std::uint32_t>(value.size()));
        bytes_.append(value).append(1, '\0');
    }
    void signature(std::string_view value)
    {
        byte(static_cast<char>(value.size()));
        bytes_.append(value).append(1, '\0');
    }
    void field(Field code, std::string_view type, std::string_view value)
    {
        align(8);
        byte(static_cast<char>(code));
        signature(type);
        if (type == "g")
            signature(value);
        else
            text(value);
    }
    std::size_t size() const { return bytes_.size(); }
    std::string bytes() && { return std::move(bytes_); }

private:
    std::string bytes_;
};

/// Reads within bounds; after a step outside them `isBroken` is true, and what was read since is worthless.
class Reader {
public:
    Reader(std::string_view bytes, std::size_t position) : bytes_(bytes), position_(position) {}

    bool atEnd() const { return isBroken_ || position_ >= bytes_.size(); }
    bool isBroken() const { return isBroken_; }
    void align(std::size_t alignment) { position_ = aligned(position_, alignment); }
    std::uint8_t byte() { return static_cast<std::uint8_t>(take(1).front()); }
    std::uint32_t number()
    {
        align(4);
        std::uint32_t value = 0;
        std::memcpy(&value, take(sizeof value).data(), sizeof value);
        return value;
    }
    std::string_view text() { return terminated(number()); }
    std::string_view signature() { return terminated(byte()); }

private:
    std::string_view terminated(std::size_t size)
    {
        const std::string_view value = take(size);
        take(1);
        return isBroken_ ? std::string_view() : value;
    }

    std::string_view take(std::size_t size)
    {
        isBroken_ = isBroken_ || position_ > bytes_.size() || size > bytes_.size() - position_;
        if (isBroken_) return {"\0\0\0\0", 4};
        const std::string_view taken = bytes_.substr(position_, size);
        position_ += size;
        return taken;
    }

    std::string_view bytes_;
    std::size_t position_;
    bool isBroken_ = false;
};

/// False when the fields cannot be read.
bool readFields(std::string_view header, BusMessage& message)
{
    Reader reader(header, fixedHeaderSize);
    while (!reader.atEnd()) {
        reader.align(8);
        const auto code = static_cast<Field>(reader.byte());
        const std::string_view type = reader.signature();
        if (type == "u") {
            const std::uint32_t value = reader.number();
            if (code == Field::replySerial) message.replySerial = value;
        } else if (type == "s" || type == "o") {
            const std::string_view value = reader.text();
            if (code == Field::errorName) message.errorName = value;
        } else if (type == "g") {
            reader.signature();
        } else {
            return false;
        }
    }
    return !reader.isBroken();
}

}

std::string encode(const BusCall& call)
{
    constexpr char methodCall = 1;
    constexpr char noAutoStart = 2;
    constexpr char protocolVersion = 1;
    Writer writer;
    writer.byte(ourByteOrder);
    writer.byte(methodCall);
    writer.byte(call.startsDestination ? '\0' : noAutoStart);
    writer.byte(protocolVersion);
    const std::size_t bodySize = writer.size();
    writer.number(0);
    writer.number(call.serial);
    const std::size_t fieldsSize = writer.size();
    writer.number(0);
    writer.field(Field::path, "o", call.path);
    writer.field(Field::interface, "s", call.interface);
    writer.field(Field::member, "s", call.member);
    writer.field(Field::destination, "s", call.destination);
    if (call.url) writer.field(Field::signature, "g", "asa{sv}");
    writer.set(fieldsSize, static_cast<std::uint32_t>(writer.size() - fixedHeaderSize));
    writer.align(8);
    if (!call.url) return std::move(writer).bytes();

    const std::size_t body = writer.size();
    writer.number(static_cast<std::uint32_t>(sizeof(std::uint32_t) + call.url->size() + 1)); // one text
    writer.text(*call.url);
    writer.number(0); // no platform data; an entry would be aligned like this
    writer.align(8);
    writer.set(bodySize, static_cast<std::uint32_t>(writer.size() - body));
    return std::move(writer).bytes();
}

DecodedMessage decodeMessage(std::string_view bytes)
{
    using State = DecodedMessage::State;
    if (bytes.size() < fixedHeaderSize) return {.state = State::incomplete};
    const std::size_t bodySize = Reader(bytes, 4).number();
    const std::size_t fieldsSize = Reader(bytes, 12).number();
    if (bytes[0] != ourByteOrder || bodySize > maxMessageSize || fieldsSize > maxMessageSize)
        return {.state = State::broken};

    BusMessage message;
    message.size = aligned(fixedHeaderSize + fieldsSize, 8) + bodySize;
    if (bytes.size() < message.size) return {.state = State::incomplete};
    if (bytes[1] == 2) message.kind = BusMessage::Kind::methodReturn;
    if (bytes[1] == 3) message.kind = BusMessage::Kind::error;
    if (!readFields(bytes.substr(0, fixedHeaderSize + fieldsSize), message)) return {.state = State::broken};
    return {.state = State::complete, .message = message};
}

}
