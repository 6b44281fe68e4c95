// SPDX-License-Identifier: MIT
#include "platform/linux/tray/tray_panel.h"

#include "platform/linux/freedesktop/x11.h"

#include <QGuiApplication>

#include <array>
#include <cmath>

#include <xcb/xcb.h>

namespace chimewell {

namespace {

template<std::size_t size>
void setProperty(xcb_connection_t* x11, WId window, const char* name, xcb_atom_t type,
                 const std::array<std::uint32_t, size>& values)
{
    xcb_change_property(x11, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window), x11Atom(x11, name),
                        type, 32, size, values.data());
}

}

bool isComposited()
{
    xcb_connection_t* const x11 = x11Connection();
    return !x11 || x11SelectionOwner(x11, x11Atom(x11, "_NET_WM_CM_S0")) != XCB_WINDOW_NONE;
}

void prepareTrayPanel(WId window, int shadow)
{
    xcb_connection_t* const x11 = x11Connection();
    if (!x11) return;
    // Qt adds its own states to these when it shows the window.
    setProperty(
        x11, window, "_NET_WM_STATE", XCB_ATOM_ATOM,
        std::array{x11Atom(x11, "_NET_WM_STATE_SKIP_TASKBAR"), x11Atom(x11, "_NET_WM_STATE_SKIP_PAGER")});
    const auto pixels = static_cast<std::uint32_t>(std::lround(shadow * qGuiApp->devicePixelRatio()));
    if (pixels)
        setProperty(x11, window, "_GTK_FRAME_EXTENTS", XCB_ATOM_CARDINAL,
                    std::array{pixels, pixels, pixels, pixels});
}

}
