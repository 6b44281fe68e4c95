// SPDX-License-Identifier: MIT
#pragma once

namespace chimewell {

enum class CurrentDesktop { gnome, plasma, xfce, other };

/// By XDG_CURRENT_DESKTOP, where the first known name counts: "ubuntu:GNOME" is GNOME.
CurrentDesktop currentDesktop();

}
