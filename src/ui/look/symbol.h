// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QRectF>
#include <QString>

#include <functional>
#include <string_view>

class QPainter;

namespace chimewell {

/// A square of so many pixels in `QImage::Format_Alpha8`; null for a name that it does not know.
using SymbolSource = std::function<QImage(std::string_view name, int pixels)>;
/// Lets `source` draw the symbols. Ours are used for those that it does not know. Call it before any is
/// drawn.
void setSymbolSource(SymbolSource source);

/// The drawing of the symbol of that name, `size` logical pixels wide and high, in one colour. Cached.
QPixmap symbol(std::string_view name, int size, const QColor& colour, qreal devicePixelRatio);

/// Paints it into the middle of `area`. Arrows along the line are mirrored for text from right to left.
void paintSymbol(QPainter& painter, std::string_view name, const QRectF& area, int size, const QColor& colour,
                 Qt::LayoutDirection direction = Qt::LeftToRight);

/// Our symbol of that name for ordinary buttons and check boxes. Its colour follows the palette.
QIcon symbolIcon(std::string_view name, Tone tone = Tone::neutral);

/// The desktop's icon of that name. Where it cannot be loaded, as without Qt's plug-in for SVG, it is our
/// `symbol` in a grey that is readable on light and dark panels; it keeps the name, for panels that load
/// icons themselves.
QIcon themedIcon(const QString& name, std::string_view symbol);

}
