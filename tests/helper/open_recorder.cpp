// SPDX-License-Identifier: MIT
// open_recorder FILE: owns the application's name on the session bus and appends a line "ready" to FILE, then
// the URL of every Open call that it gets. It also is a notification service that shows nothing. It ends with
// the bus.

#include "values/shared_names.h"

#include <dbus/dbus.h>

#include <fcntl.h>
#include <unistd.h>

#include <string>

namespace {

void record(int file, const std::string& line)
{
    const std::string bytes = line + "\n";
    if (write(file, bytes.data(), bytes.size()) < 0) _exit(1);
}

/// Exactly the one signature that the application's interface has.
std::string openedUrl(DBusMessage* message)
{
    if (!dbus_message_has_interface(message, chimewell::applicationInterface)) return "wrong interface";
    if (!dbus_message_has_path(message, chimewell::applicationObjectPath)) return "wrong path";
    if (!dbus_message_has_signature(message, "asa{sv}")) return "wrong signature";
    DBusMessageIter arguments;
    DBusMessageIter urls;
    dbus_message_iter_init(message, &arguments);
    dbus_message_iter_recurse(&arguments, &urls);
    const char* url = nullptr;
    dbus_message_iter_get_basic(&urls, static_cast<void*>(&url));
    return url;
}

/// Notifications are answered as their service would; Open has an empty answer.
void answer(DBusConnection* bus, DBusMessage* message)
{
    DBusMessage* const reply = dbus_message_new_method_return(message);
    const dbus_uint32_t identifier = 1;
    const char* const text = "1.2";
    if (dbus_message_has_member(message, "Notify"))
        dbus_message_append_args(reply, DBUS_TYPE_UINT32, &identifier, DBUS_TYPE_INVALID);
    if (dbus_message_has_member(message, "GetServerInformation"))
        dbus_message_append_args(reply, DBUS_TYPE_STRING, &text, DBUS_TYPE_STRING, &text, DBUS_TYPE_STRING,
                                 &text, DBUS_TYPE_STRING, &text, DBUS_TYPE_INVALID);
    dbus_connection_send(bus, reply, nullptr);
    dbus_message_unref(reply);
}

}

int main(int argc, char** argv)
{
    if (argc != 2) return 2;
    const int file = open(argv[1], O_WRONLY | O_APPEND);
    DBusConnection* const bus = dbus_bus_get_private(DBUS_BUS_SESSION, nullptr);
    if (file < 0 || bus == nullptr) return 1;
    for (const char* const name : {"org.freedesktop.Notifications", chimewell::applicationId})
        dbus_bus_request_name(bus, name, DBUS_NAME_FLAG_DO_NOT_QUEUE, nullptr);
    record(file, "ready");
    do { // calls may have come with the name
        while (DBusMessage* const message = dbus_connection_pop_message(bus)) {
            if (dbus_message_get_type(message) == DBUS_MESSAGE_TYPE_METHOD_CALL) {
                if (dbus_message_has_member(message, chimewell::openMethod)) record(file, openedUrl(message));
                answer(bus, message);
            }
            dbus_message_unref(message);
        }
    } while (dbus_connection_read_write(bus, -1));
    return 0;
}
