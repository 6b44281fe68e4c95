// SPDX-License-Identifier: MIT
#include "ui/controls/elided_label.h"

#include <QPainter>

namespace chimewell {

void ElidedLabel::setFullText(const QString& text)
{
    full_ = QString(text).replace(QLatin1Char('\n'), QLatin1Char(' '));
    setAccessibleName(text);
    updateGeometry();
    update();
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 4, fontMetrics().height()};
}

QSize ElidedLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(full_) + 1, fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine,
                     fontMetrics().elidedText(full_, Qt::ElideRight, width()));
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    TextLabel::resizeEvent(event);
    // As rich text, which wraps; so what looks like markup has to be escaped.
    const bool isElided = fontMetrics().horizontalAdvance(full_) > width();
    setToolTip(isElided ? QStringLiteral("<p>%1</p>").arg(full_.toHtmlEscaped()) : QString());
}

}
