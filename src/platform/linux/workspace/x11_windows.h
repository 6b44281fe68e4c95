// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace chimewell {

/// Brings forward the topmost window, minimised ones included, whose class (WM_CLASS, either half) is
/// one of `classes`, compared without case; empty ones match nothing. Goes to the window's desktop.
/// False when there is none, no display, or no window manager that lists its windows
/// (Extended Window Manager Hints 1.5).
///
/// It connects for this one call: clicks are rare, and a connection kept open would have to be served.
bool activateNewestWindow(const std::string& display, std::span<const std::string_view> classes);

}
