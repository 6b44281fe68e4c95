// SPDX-License-Identifier: MIT
#include "helper/bus_message.h"

#include <dbus/dbus.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace chimewell::test {
namespace {

struct Unref {
    void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using Message = std::unique_ptr<DBusMessage, Unref>;

std::string marshalled(const Message& message)
{
    char* bytes = nullptr;
    int size = 0;
    dbus_message_marshal(message.get(), &bytes, &size);
    std::string copy(bytes, static_cast<std::size_t>(size));
    dbus_free(bytes);
    return copy;
}

/// A reply as the bus sends it.
Message replyTo(std::uint32_t serial, int type = DBUS_MESSAGE_TYPE_METHOD_RETURN)
{
    Message reply(dbus_message_new(type));
    dbus_message_set_reply_serial(reply.get(), serial);
    dbus_message_set_sender(reply.get(), "org.freedesktop.DBus");
    dbus_message_set_serial(reply.get(), 77);
    return reply;
}

TEST(BusMessage, IsUnderstoodByLibdbus)
{
    for (std::size_t length = 0; length < 10; ++length) { // every alignment of what follows
        const std::string url(length, 'u');
        const std::string bytes = encode({.serial = 2,
                                          .destination = "a.b" + std::string(length % 3, 'c'),
                                          .path = "/a",
                                          .interface = "i.f",
                                          .member = "Open",
                                          .startsDestination = length % 2 == 0,
                                          .url = url});
        const Message message(dbus_message_demarshal(bytes.data(), static_cast<int>(bytes.size()), nullptr));
        ASSERT_TRUE(message) << length;
        EXPECT_STREQ(dbus_message_get_signature(message.get()), "asa{sv}");
        EXPECT_EQ(dbus_message_get_auto_start(message.get()), length % 2 == 0);
        EXPECT_EQ(dbus_message_get_serial(message.get()), 2U);
        DBusMessageIter arguments;
        DBusMessageIter urls;
        dbus_message_iter_init(message.get(), &arguments);
        ASSERT_EQ(dbus_message_iter_get_element_count(&arguments), 1);
        dbus_message_iter_recurse(&arguments, &urls);
        const char* first = nullptr;
        dbus_message_iter_get_basic(&urls, static_cast<void*>(&first));
        EXPECT_EQ(first, url);
    }
}

TEST(BusMessage, ReadsRepliesOfLibdbus)
{
    using State = DecodedMessage::State;
    const std::string answer = marshalled(replyTo(3));
    const Message error = replyTo(2, DBUS_MESSAGE_TYPE_ERROR);
    dbus_message_set_error_name(error.get(), "org.freedesktop.DBus.Error.ServiceUnknown");
    const char* const explanation = "The name is not activatable";
    dbus_message_append_args(error.get(), DBUS_TYPE_STRING, &explanation, DBUS_TYPE_INVALID);
    const std::string bytes = marshalled(error);

    const std::string both = bytes + answer;
    const auto [state, message] = decodeMessage(both);
    ASSERT_EQ(state, State::complete);
    EXPECT_EQ(message.kind, BusMessage::Kind::error);
    EXPECT_EQ(message.replySerial, 2U);
    EXPECT_EQ(message.errorName, "org.freedesktop.DBus.Error.ServiceUnknown");
    EXPECT_EQ(message.size, bytes.size());
    const auto [nextState, next] = decodeMessage(answer);
    ASSERT_EQ(nextState, State::complete);
    EXPECT_EQ(next.kind, BusMessage::Kind::methodReturn);
    EXPECT_EQ(next.replySerial, 3U);

    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_EQ(decodeMessage(std::string_view(bytes).substr(0, size)).state, State::incomplete) << size;
    for (const auto& [at, byte] : {std::pair{7, '\x7F'}, {0, 'B'}}) { // the body's size, the byte order
        std::string broken = answer;
        broken[static_cast<std::size_t>(at)] = byte;
        EXPECT_EQ(decodeMessage(broken).state, State::broken) << at;
    }
}

}
}
