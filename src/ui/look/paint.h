// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QAbstractButton;
class QPainter;

namespace chimewell {

/// A filled shape with round corners and without a border.
void fillRounded(QPainter& painter, const QRectF& area, qreal radius, const QColor& colour);
/// A hairline just inside the edge.
void strokeRounded(QPainter& painter, const QRectF& area, qreal radius, const QColor& colour,
                   qreal width = 1);
/// The ring that says where the keyboard is, just inside `area`.
void paintFocusRing(QPainter& painter, const QRectF& area, qreal radius);
/// The background of a button without a border: tinted while it is pressed or under the pointer. With the
/// focus ring.
void paintButtonBackground(QPainter& painter, const QAbstractButton& button, qreal radius);
/// One line of text at the leading edge of `area`, which is mirrored already. Ends in "…" where there is no
/// room.
void paintTextLine(QPainter& painter, const QRect& area, const QString& text, Qt::LayoutDirection direction);

}
