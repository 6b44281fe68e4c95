// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"

#include <QIcon>

#include <string_view>

namespace chimewell {

/// Our drawing of the symbol of that name for ordinary buttons and check boxes. Its colour is read each time
/// that it is drawn.
QIcon symbolIcon(std::string_view name, Tone tone = Tone::neutral);

}
