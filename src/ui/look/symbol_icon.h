// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"

#include <QIcon>
#include <QString>

#include <string_view>

namespace chimewell {

/// Our drawing of the symbol of that name for ordinary buttons and check boxes. Its colour is read each time
/// that it is drawn.
QIcon symbolIcon(std::string_view name, Tone tone = Tone::neutral);

/// The desktop's icon of that name. Where it cannot be loaded, as without Qt's plug-in for SVG, our drawing
/// of `symbol` stands in, in a grey that is readable on light and dark panels. It bears the name all the
/// same, for panels that load icons themselves.
QIcon themedIcon(const QString& name, std::string_view symbol);

}
