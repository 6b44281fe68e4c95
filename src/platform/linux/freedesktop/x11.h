// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

struct xcb_connection_t;

namespace chimewell {

/// Qt's connection to the X server; null where Qt shows its windows elsewhere.
xcb_connection_t* x11Connection();

std::uint32_t x11Atom(xcb_connection_t* connection, std::string_view name);

/// The window that owns the selection; none if nobody does.
std::uint32_t x11SelectionOwner(xcb_connection_t* connection, std::uint32_t selection);

}
