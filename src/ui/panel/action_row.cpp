// SPDX-License-Identifier: MIT
#include "ui/panel/action_row.h"

#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double textStart = 36;
constexpr double padding = 12;

}

ActionRow::ActionRow(std::string_view symbol, const QString& text, QWidget* parent)
    : QAbstractButton(parent),
      symbol_(symbol)
{
    setText(text);
    setAccessibleName(text);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ActionRow::sizeHint() const
{
    return {scaled(textStart) + fontMetrics().horizontalAdvance(text()) + scaled(padding),
            std::max(scaled(30), fontMetrics().height() + scaled(8))};
}

void ActionRow::paintEvent(QPaintEvent*)
{
    const Colours& c = colours();
    QPainter painter(this);
    const int radius = scaled(metrics::controlRadius);
    if (isDown() || underMouse())
        fillRounded(painter, rect(), radius, c.wash(isDown() ? Colours::pressed : Colours::hover));
    const QRect icon(scaled(padding), 0, scaled(metrics::rowIcon), height());
    paintSymbol(painter, symbol_, QStyle::visualRect(layoutDirection(), rect(), icon),
                scaled(metrics::rowIcon), c.secondary, layoutDirection());
    painter.setPen(c.text);
    const QRect line = rect().adjusted(scaled(textStart), 0, -scaled(padding), 0);
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), line),
                     static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) |
                         Qt::AlignVCenter,
                     text());
    if (ChimewellStyle::showsFocus(this)) paintFocusRing(painter, rect(), radius);
}

}
