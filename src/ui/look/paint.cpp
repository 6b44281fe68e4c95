// SPDX-License-Identifier: MIT
#include "ui/look/paint.h"

#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"

#include <QAbstractButton>
#include <QPainter>
#include <QStyle>

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

void paintButtonBackground(QPainter& painter, const QAbstractButton& button, qreal radius)
{
    if (button.isEnabled() && (button.isDown() || button.underMouse()))
        fillRounded(painter, button.rect(), radius,
                    colours().overlay(button.isDown() ? Colours::pressed : Colours::hover));
    if (ChimewellStyle::showsFocus(&button)) paintFocusRing(painter, button.rect(), radius);
}

void paintTextLine(QPainter& painter, const QRect& area, const QString& text, Qt::LayoutDirection direction)
{
    const Qt::Alignment side = QStyle::visualAlignment(direction, Qt::AlignLeft);
    painter.drawText(area, static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, area.width()));
}

}
