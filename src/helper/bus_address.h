// SPDX-License-Identifier: MIT
#pragma once

#include "helper/environment.h"

#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// The sockets at which the session bus may be reached, in the order in which to try them: those of
/// DBUS_SESSION_BUS_ADDRESS, or if that is not set the one in the user's runtime folder. A name that begins
/// with NUL is an abstract one. Transports other than Unix sockets, and what cannot be understood, are passed
/// over.
std::vector<std::string> sessionBusSockets(const Environment& environment, unsigned int userId);

}
