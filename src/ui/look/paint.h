// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace chimewell {

/// A filled shape with round corners and without a border.
void fillRounded(QPainter& painter, const QRectF& area, qreal radius, const QColor& colour);
/// A hairline just inside the edge.
void strokeRounded(QPainter& painter, const QRectF& area, qreal radius, const QColor& colour,
                   qreal width = 1);
/// The ring that says where the keyboard is, just inside `area`.
void paintFocusRing(QPainter& painter, const QRectF& area, qreal radius);

}
