// SPDX-License-Identifier: MIT
#include "ui/controls/balanced_label.h"

#include <QEvent>

#include <algorithm>
#include <numeric>

namespace chimewell {

BalancedLabel::BalancedLabel(TextStyle style, Ink ink, int widest, QWidget* parent)
    : TextLabel(style, ink, parent),
      widest_(widest)
{
    setWrapping(true);
    setCentred(true);
}

void BalancedLabel::setText(const QString& text)
{
    TextLabel::setText(text);
    balance();
}

void BalancedLabel::setMarkedText(const QString& text)
{
    TextLabel::setMarkedText(text);
    balance();
}

int BalancedLabel::heightForWidth(int width) const
{
    // Of the text alone: the margins follow from it.
    const QMargins margins = contentsMargins();
    return TextLabel::heightForWidth(std::min(width, widest_) + margins.left() + margins.right());
}

void BalancedLabel::resizeEvent(QResizeEvent* event)
{
    TextLabel::resizeEvent(event);
    balance();
}

void BalancedLabel::changeEvent(QEvent* event)
{
    TextLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) balance();
}

void BalancedLabel::balance()
{
    const int height = heightForWidth(width());
    int tooNarrow = 0;
    int enough = std::min(width(), widest_);
    while (enough - tooNarrow > 1) {
        const int middle = std::midpoint(tooNarrow, enough);
        (heightForWidth(middle) > height ? tooNarrow : enough) = middle;
    }
    const int spare = width() - enough;
    setContentsMargins(spare / 2, 0, spare - spare / 2, 0);
}

}
