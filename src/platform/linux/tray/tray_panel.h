// SPDX-License-Identifier: MIT
#pragma once

#include <QWindow>

namespace chimewell {

/// Whether windows can be translucent: always under Wayland, and under X11 while a compositing manager runs.
bool isComposited();

/// Keeps the window, which is not shown yet, out of task bars and pagers, and tells window managers how many
/// pixels of it on each side are shadow. Only X11 needs this.
void prepareTrayPanel(WId window, int shadow);

}
