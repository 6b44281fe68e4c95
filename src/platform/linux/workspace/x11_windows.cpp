// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/x11_windows.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>

namespace chimewell {
namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
template<typename T>
using Owned = std::unique_ptr<T, Free>;

constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;
constexpr std::uint32_t sourcePager = 2;      // we act for the user, like a task bar
constexpr std::uint32_t maximumWords = 16384; // of one property: far above any list of windows

struct Atoms {
    xcb_atom_t clientList, activeWindow, currentDesktop, windowDesktop, timeProbe;
};

struct Window {
    xcb_window_t id;
    std::uint32_t desktop;
};

/// Each function asks everything first and then waits, so it costs one round trip.
class XSession {
public:
    explicit XSession(const std::string& display)
    {
        int number = 0;
        connection_.reset(xcb_connect(display.c_str(), &number));
        if (xcb_connection_has_error(connection_.get()) != 0) return;
        xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection_.get()));
        for (; number > 0 && screens.rem > 1; --number)
            xcb_screen_next(&screens);
        root_ = screens.data->root;
    }
    bool isOpen() const { return root_ != XCB_WINDOW_NONE; }

    void readAtoms()
    {
        constexpr std::array<std::string_view, 5> names = {"_NET_CLIENT_LIST_STACKING", "_NET_ACTIVE_WINDOW",
                                                           "_NET_CURRENT_DESKTOP", "_NET_WM_DESKTOP",
                                                           "_CHIMEWELL_TIME"};
        std::array<xcb_intern_atom_cookie_t, names.size()> asked;
        for (std::size_t i = 0; i < names.size(); ++i)
            asked[i] = xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(names[i].size()),
                                       names[i].data());
        std::array<xcb_atom_t, names.size()> atoms = {};
        for (std::size_t i = 0; i < names.size(); ++i) {
            const Owned<xcb_intern_atom_reply_t> reply(
                xcb_intern_atom_reply(connection_.get(), asked[i], nullptr));
            if (reply) atoms[i] = reply->atom;
        }
        atoms_ = {atoms[0], atoms[1], atoms[2], atoms[3], atoms[4]};
    }

    /// Bottom to top.
    std::vector<std::uint32_t> stackedWindows()
    {
        const auto windows = ask(root_, atoms_.clientList, XCB_ATOM_WINDOW);
        const auto desktop = ask(root_, atoms_.currentDesktop, XCB_ATOM_CARDINAL);
        std::vector<std::uint32_t> ids = numbers(windows);
        currentDesktop_ = firstNumber(desktop);
        return ids;
    }

    std::optional<Window> topmost(const std::vector<std::uint32_t>& windows,
                                  std::span<const std::string_view> classes)
    {
        struct Asked {
            xcb_get_property_cookie_t windowClass, desktop;
        };
        std::vector<Asked> asked;
        asked.reserve(windows.size());
        for (const std::uint32_t window : windows)
            asked.push_back({ask(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING),
                             ask(window, atoms_.windowDesktop, XCB_ATOM_CARDINAL)});
        std::optional<Window> found;
        // Every reply is read, and the last match is the topmost.
        for (std::size_t i = 0; i < windows.size(); ++i) {
            const std::string windowClass = text(asked[i].windowClass);
            const std::uint32_t desktop = firstNumber(asked[i].desktop).value_or(everyDesktop);
            if (hasClass(windowClass, classes)) found = Window{windows[i], desktop};
        }
        return found;
    }

    void activate(const Window& window)
    {
        const std::uint32_t time = serverTime();
        if (currentDesktop_ && window.desktop != everyDesktop && window.desktop != *currentDesktop_)
            tellManager(root_, atoms_.currentDesktop, {window.desktop, time});
        tellManager(window.id, atoms_.activeWindow, {sourcePager, time});
        // A reply proves that the server received the messages before we disconnect.
        const Owned<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
    }

private:
    xcb_get_property_cookie_t ask(xcb_window_t window, xcb_atom_t property, xcb_atom_t type)
    {
        return xcb_get_property(connection_.get(), 0, window, property, type, 0, maximumWords);
    }

    Owned<xcb_get_property_reply_t> reply(xcb_get_property_cookie_t cookie)
    {
        return Owned<xcb_get_property_reply_t>(xcb_get_property_reply(connection_.get(), cookie, nullptr));
    }

    std::vector<std::uint32_t> numbers(xcb_get_property_cookie_t cookie)
    {
        const auto property = reply(cookie);
        if (!property || property->format != 32) return {};
        const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(property.get()));
        return {first, first + property->value_len};
    }

    std::optional<std::uint32_t> firstNumber(xcb_get_property_cookie_t cookie)
    {
        const std::vector<std::uint32_t> all = numbers(cookie);
        return all.empty() ? std::nullopt : std::optional(all.front());
    }

    std::string text(xcb_get_property_cookie_t cookie)
    {
        const auto property = reply(cookie);
        if (!property || property->format != 8) return {};
        return {static_cast<const char*>(xcb_get_property_value(property.get())), property->value_len};
    }

    /// `windowClass` is the instance and the class, each ended by a NUL.
    static bool hasClass(std::string_view windowClass, std::span<const std::string_view> classes)
    {
        constexpr auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
        while (!windowClass.empty()) {
            const std::size_t end = std::min(windowClass.find('\0'), windowClass.size());
            const std::string_view half = windowClass.substr(0, end);
            for (const std::string_view name : classes)
                if (!name.empty() && std::ranges::equal(half, name, {}, lower, lower)) return true;
            windowClass.remove_prefix(std::min(end + 1, windowClass.size()));
        }
        return false;
    }

    /// The server's clock, which window managers compare with the time of the user's last action: a
    /// message without it counts as old and only makes the task bar blink.
    std::uint32_t serverTime()
    {
        const xcb_window_t window = xcb_generate_id(connection_.get());
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window, root_, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
        xcb_change_property(connection_.get(), XCB_PROP_MODE_APPEND, window, atoms_.timeProbe,
                            XCB_ATOM_INTEGER, 32, 0, nullptr);
        xcb_flush(connection_.get());
        while (true) {
            const Owned<xcb_generic_event_t> event(xcb_wait_for_event(connection_.get()));
            if (!event || event->response_type == 0) return XCB_CURRENT_TIME;
            if ((event->response_type & 0x7F) != XCB_PROPERTY_NOTIFY) continue;
            return reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
        }
    }

    void tellManager(xcb_window_t window, xcb_atom_t type, std::array<std::uint32_t, 2> data)
    {
        xcb_client_message_event_t message = {};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = type;
        std::ranges::copy(data, message.data.data32);
        xcb_send_event(connection_.get(), 0, root_,
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&message));
    }

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    Atoms atoms_ = {};
    std::optional<std::uint32_t> currentDesktop_;
};

}

bool activateNewestWindow(const std::string& display, std::span<const std::string_view> classes)
{
    if (std::ranges::all_of(classes, &std::string_view::empty)) return false;
    XSession session(display);
    if (!session.isOpen()) return false;
    session.readAtoms();
    const std::optional<Window> window = session.topmost(session.stackedWindows(), classes);
    if (!window) return false;
    session.activate(*window);
    return true;
}

}
