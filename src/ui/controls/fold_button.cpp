// SPDX-License-Identifier: MIT
#include "ui/controls/fold_button.h"

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

constexpr double beforeText = 16, padding = 6;
constexpr double inside = 3; // of the arrow's square, before the arrow begins
constexpr double foldButtonHeight = 24;

}

FoldButton::FoldButton(const QString& text, QWidget* parent) : QAbstractButton(parent)
{
    setText(text);
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

QSize FoldButton::sizeHint() const
{
    const QFontMetrics size(fontFor(TextStyle::body));
    return {scaled(beforeText) + size.horizontalAdvance(text()) + scaled(padding),
            std::max(scaled(foldButtonHeight), size.height() + scaled(4))};
}

void FoldButton::paintEvent(QPaintEvent*)
{
    const Colours& c = colours();
    QPainter painter(this);
    const int side = scaled(metrics::rowIcon);
    const auto placed = [&](const QRect& area) {
        return QStyle::visualRect(layoutDirection(), rect(), area);
    };
    paintSymbol(painter, isChecked() ? "chevron.down" : "chevron.right",
                placed(QRect(-scaled(inside), 0, side, height())), side, underMouse() ? c.text : c.secondary,
                layoutDirection());
    painter.setFont(fontFor(TextStyle::body));
    painter.setPen(c.text);
    const QRect words(scaled(beforeText), 0, width() - scaled(beforeText), height());
    painter.drawText(placed(words),
                     static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) |
                                      Qt::AlignVCenter | Qt::AlignAbsolute) |
                         Qt::TextSingleLine,
                     text());
    if (ChimewellStyle::showsFocus(this)) paintFocusRing(painter, rect(), scaled(metrics::controlRadius));
}

}
