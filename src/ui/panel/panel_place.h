// SPDX-License-Identifier: MIT
#pragma once

#include "ports/status_icon.h"

#include <QRect>

#include <optional>

namespace chimewell {

/// What the panel opens beside, in global coordinates: the icon, where its place is known and at the edge of
/// a screen, or else the pointer, if that is there. Otherwise the corner that is nearest to the desktop's own
/// panel: a place in the middle of the screen was not clicked, but asked for by keyboard or over the bus.
QRect panelAnchor(const std::optional<ScreenArea>& icon);

}
