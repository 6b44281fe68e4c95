// SPDX-License-Identifier: MIT
#include "ui/settings/sidebar_delegate.h"

#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"

#include <QPainter>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double rowHeight = 32, padding = 8;

}

void SidebarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    const Colours& c = colours();
    const bool isCurrent = option.state & QStyle::State_Selected;
    const bool isActive = option.state & QStyle::State_Active;
    const QRect row = option.rect.adjusted(0, 0, 0, -gap_);
    const auto placed = [&](const QRect& area) { return QStyle::visualRect(option.direction, row, area); };
    painter->save();
    const int radius = scaled(metrics::controlRadius);
    if (isCurrent)
        fillRounded(*painter, row, radius, c.wash(Colours::selected));
    else if (option.state & QStyle::State_MouseOver)
        fillRounded(*painter, row, radius, c.wash(Colours::hover));

    const int side = scaled(metrics::sidebarIcon);
    QRect area = row.adjusted(scaled(padding), 0, -scaled(padding), 0);
    paintSymbol(*painter, index.data(iconRole).toString().toStdString(),
                placed(QRect(area.left(), area.top(), side, area.height())), side,
                isCurrent && isActive ? c.accentText : c.secondary, option.direction);
    area.setLeft(area.left() + side + scaled(padding));
    const QFont font = fontFor(isCurrent ? TextStyle::bodyMedium : TextStyle::body);
    painter->setFont(font);
    painter->setPen(c.text);
    const Qt::Alignment edge = QStyle::visualAlignment(option.direction, Qt::AlignLeft);
    painter->drawText(placed(area),
                      static_cast<int>(edge | Qt::AlignVCenter | Qt::AlignAbsolute) | Qt::TextSingleLine,
                      QFontMetrics(font).elidedText(index.data().toString(), Qt::ElideRight, area.width()));
    if (option.state & QStyle::State_HasFocus && ChimewellStyle::showsFocus(option.widget))
        paintFocusRing(*painter, row, radius);
    painter->restore();
}

QSize SidebarDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const QFontMetrics size(fontFor(TextStyle::bodyMedium));
    return {3 * scaled(padding) + scaled(metrics::sidebarIcon) +
                size.horizontalAdvance(index.data().toString()) + 1,
            std::max(scaled(rowHeight), size.height() + scaled(8)) + gap_};
}

}
