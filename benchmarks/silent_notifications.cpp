// SPDX-License-Identifier: MIT
// silent_notifications BUS-ADDRESS: a notification service that shows nothing, to measure those who call one.
// It ends with the bus.

#include <dbus/dbus.h>

#include <cstdint>
#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2) return 2;
    DBusConnection* const bus = dbus_connection_open_private(argv[1], nullptr);
    if (bus == nullptr || !dbus_bus_register(bus, nullptr)) return 1;
    dbus_bus_request_name(bus, "org.freedesktop.Notifications", DBUS_NAME_FLAG_DO_NOT_QUEUE, nullptr);
    std::puts("ready");
    std::fflush(stdout);
    do {
        while (DBusMessage* const message = dbus_connection_pop_message(bus)) {
            if (dbus_message_get_type(message) == DBUS_MESSAGE_TYPE_METHOD_CALL) {
                DBusMessage* const reply = dbus_message_new_method_return(message);
                const std::uint32_t identifier = 1;
                const char* const text = "1.2";
                if (dbus_message_has_member(message, "Notify"))
                    dbus_message_append_args(reply, DBUS_TYPE_UINT32, &identifier, DBUS_TYPE_INVALID);
                if (dbus_message_has_member(message, "GetServerInformation"))
                    dbus_message_append_args(reply, DBUS_TYPE_STRING, &text, DBUS_TYPE_STRING, &text,
                                             DBUS_TYPE_STRING, &text, DBUS_TYPE_STRING, &text,
                                             DBUS_TYPE_INVALID);
                dbus_connection_send(bus, reply, nullptr);
                dbus_message_unref(reply);
            }
            dbus_message_unref(message);
        }
    } while (dbus_connection_read_write(bus, -1));
    return 0;
}
