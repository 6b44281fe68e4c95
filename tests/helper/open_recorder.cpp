// SPDX-License-Identifier: MIT
// open_recorder BUS-ADDRESS FILE: takes the application's name on the bus and appends a line "ready" to FILE,
// then the URL of every Open call that it gets. It ends with the bus.

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
    if (!dbus_message_has_path(message, "/app/chimewell/Chimewell")) return "wrong path";
    if (!dbus_message_has_signature(message, "asa{sv}")) return "wrong signature";
    DBusMessageIter arguments;
    DBusMessageIter urls;
    dbus_message_iter_init(message, &arguments);
    dbus_message_iter_recurse(&arguments, &urls);
    const char* url = nullptr;
    dbus_message_iter_get_basic(&urls, static_cast<void*>(&url));
    return url;
}

}

int main(int argc, char** argv)
{
    if (argc != 3) return 2;
    const int file = open(argv[2], O_WRONLY | O_APPEND);
    DBusConnection* const bus = dbus_connection_open_private(argv[1], nullptr);
    if (file < 0 || bus == nullptr || !dbus_bus_register(bus, nullptr)) return 1;
    dbus_bus_request_name(bus, "app.chimewell.Chimewell", DBUS_NAME_FLAG_DO_NOT_QUEUE, nullptr);
    record(file, "ready");
    do { // calls may have come with the name
        while (DBusMessage* const message = dbus_connection_pop_message(bus)) {
            if (dbus_message_is_method_call(message, "org.freedesktop.Application", "Open")) {
                record(file, openedUrl(message));
                DBusMessage* const reply = dbus_message_new_method_return(message);
                dbus_connection_send(bus, reply, nullptr);
                dbus_message_unref(reply);
            }
            dbus_message_unref(message);
        }
    } while (dbus_connection_read_write(bus, -1));
    return 0;
}
