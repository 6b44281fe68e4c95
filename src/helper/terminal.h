// SPDX-License-Identifier: MIT
#pragma once

#include "helper/environment.h"

#include <string_view>

namespace chimewell {

/// The terminal program that a shell with this environment runs in, spelled as that program calls itself;
/// empty when it cannot be told. Behind tmux or screen it is the terminal that started the multiplexer, which
/// need not be the one attached to it now: to ask would cost a process for every event.
std::string_view terminalOf(const Environment& environment);

}
