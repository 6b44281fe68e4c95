// SPDX-License-Identifier: MIT
// open_recorder FILE: owns the application's name on the session bus and appends a line "ready" to FILE, then
// the URL of every Open call that it gets. It is the notification server, too, and shows nothing, so that
// notify-send is answered. It ends with the bus.

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

/// Of a call exactly as the application's interface has it.
std::string openedUrl(DBusMessage* message)
{
    if (!dbus_message_has_interface(message, chimewell::applicationInterface) ||
        !dbus_message_has_path(message, chimewell::applicationObjectPath) ||
        !dbus_message_has_signature(message, "asa{sv}"))
        return "wrong call";
    DBusMessageIter arguments;
    DBusMessageIter urls;
    dbus_message_iter_init(message, &arguments);
    dbus_message_iter_recurse(&arguments, &urls);
    const char* url = nullptr;
    dbus_message_iter_get_basic(&urls, static_cast<void*>(&url));
    return url;
}

/// Null for what is not a call. The notification server's two methods are those that notify-send calls.
DBusMessage* replyTo(DBusMessage* message)
{
    if (dbus_message_get_type(message) != DBUS_MESSAGE_TYPE_METHOD_CALL) return nullptr;
    DBusMessage* const reply = dbus_message_new_method_return(message);
    if (dbus_message_has_member(message, "Notify")) {
        const dbus_uint32_t banner = 1;
        dbus_message_append_args(reply, DBUS_TYPE_UINT32, &banner, DBUS_TYPE_INVALID);
    }
    if (dbus_message_has_member(message, "GetServerInformation")) {
        const char* const text = "1.2"; // also the version of the notification interface
        dbus_message_append_args(reply, DBUS_TYPE_STRING, &text, DBUS_TYPE_STRING, &text, DBUS_TYPE_STRING,
                                 &text, DBUS_TYPE_STRING, &text, DBUS_TYPE_INVALID);
    }
    return reply;
}

}

int main(int argc, char** argv)
{
    if (argc != 2) return 2;
    const int file = open(argv[1], O_WRONLY | O_APPEND);
    DBusConnection* const bus = dbus_bus_get_private(DBUS_BUS_SESSION, nullptr);
    if (file < 0 || bus == nullptr) return 1;
    dbus_bus_request_name(bus, chimewell::applicationId, DBUS_NAME_FLAG_DO_NOT_QUEUE, nullptr);
    dbus_bus_request_name(bus, "org.freedesktop.Notifications", DBUS_NAME_FLAG_DO_NOT_QUEUE, nullptr);
    record(file, "ready");
    do { // calls may have come with the name
        while (DBusMessage* const message = dbus_connection_pop_message(bus)) {
            if (dbus_message_has_member(message, chimewell::openMethod)) record(file, openedUrl(message));
            if (DBusMessage* const reply = replyTo(message)) {
                dbus_connection_send(bus, reply, nullptr);
                dbus_message_unref(reply);
            }
            dbus_message_unref(message);
        }
    } while (dbus_connection_read_write(bus, -1));
    return 0;
}
