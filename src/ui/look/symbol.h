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
/// From now on `source` draws the symbols, and we only those that it does not know. To be set before any is
/// drawn.
void setSymbolSource(SymbolSource source);

/// The drawing of the symbol of that name, `size` logical pixels wide and high, in one colour. Cached.
QPixmap symbol(std::string_view name, int size, const QColor& colour, qreal devicePixelRatio);

/// Paints it into the middle of `area`; mirrored where it points along the line of text and that runs
/// leftwards.
void paintSymbol(QPainter& painter, std::string_view name, const QRectF& area, int size, const QColor& colour,
                 Qt::LayoutDirection direction = Qt::LeftToRight);

/// Our drawing of the symbol of that name for ordinary buttons and check boxes. Its colour is read each time
/// that it is drawn.
QIcon symbolIcon(std::string_view name, Tone tone = Tone::neutral);

/// The desktop's icon of that name. Where it cannot be loaded, as without Qt's plug-in for SVG, our drawing
/// of `symbol` stands in, in a grey that is readable on light and dark panels. It bears the name all the
/// same, for panels that load icons themselves.
QIcon themedIcon(const QString& name, std::string_view symbol);

}
