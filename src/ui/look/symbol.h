// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPixmap>
#include <QRectF>
#include <QString>

#include <string_view>

class QPainter;

namespace chimewell {

/// Our drawing of the symbol of that name, `size` logical pixels wide and high, in one colour. Cached.
QPixmap symbol(std::string_view name, int size, const QColor& colour, qreal devicePixelRatio);

/// Paints it into the middle of `area`; mirrored where it points along the line of text and that runs
/// leftwards.
void paintSymbol(QPainter& painter, std::string_view name, const QRectF& area, int size, const QColor& colour,
                 Qt::LayoutDirection direction = Qt::LeftToRight);

}
