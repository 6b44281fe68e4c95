// SPDX-License-Identifier: MIT
#include "ui/settings/activatable_row.h"

#include "ui/controls/edges.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double rowHeight = 44;

}

ActivatableRow::ActivatableRow(const QString& text, QWidget* parent) : QAbstractButton(parent)
{
    setText(text);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

QSize ActivatableRow::sizeHint() const
{
    const QFontMetrics size(fontFor(TextStyle::body));
    return {size.horizontalAdvance(text()) + 2 * scaled(cardEdge) + scaled(8) + scaled(metrics::rowIcon),
            std::max(scaled(rowHeight), size.height() + 2 * scaled(8))};
}

void ActivatableRow::paintEvent(QPaintEvent*)
{
    const Colours& c = colours();
    QPainter painter(this);
    const int radius = scaled(metrics::cardRadius) - 1; // that of the card, just inside its border
    if (isDown() || underMouse())
        fillRounded(painter, rect(), radius, c.wash(isDown() ? Colours::pressed : Colours::hover));
    const int side = scaled(metrics::rowIcon);
    const int edge = inRow(cardEdge);
    const auto placed = [&](const QRect& area) {
        return QStyle::visualRect(layoutDirection(), rect(), area);
    };
    painter.setPen(c.text);
    painter.setFont(fontFor(TextStyle::body));
    const QRect words(edge, 0, width() - 2 * edge - side - scaled(8), height());
    const Qt::Alignment start = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    painter.drawText(placed(words),
                     static_cast<int>(start | Qt::AlignVCenter | Qt::AlignAbsolute) | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, words.width()));
    // The arrow, which does not fill its square, ends where the controls end.
    paintSymbol(painter, "chevron.right", placed(QRect(width() - edge - side + scaled(4), 0, side, height())),
                side, c.secondary, layoutDirection());
    if (ChimewellStyle::showsFocus(this)) paintFocusRing(painter, rect(), radius);
}

}
