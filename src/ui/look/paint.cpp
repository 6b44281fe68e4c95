// SPDX-License-Identifier: MIT
#include "ui/look/paint.h"

#include "ui/look/colours.h"

#include <QPainter>

namespace chimewell {

void fillRounded(QPainter& painter, const QRectF& area, qreal radius, const QColor& colour)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(area, radius, radius);
}

void strokeRounded(QPainter& painter, const QRectF& area, qreal radius, const QColor& colour, qreal width)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, width));
    painter.setBrush(Qt::NoBrush);
    const qreal half = width / 2;
    painter.drawRoundedRect(area.adjusted(half, half, -half, -half), radius - half, radius - half);
}

void paintFocusRing(QPainter& painter, const QRectF& area, qreal radius)
{
    strokeRounded(painter, area, radius, colours().accentText, 2);
}

}
