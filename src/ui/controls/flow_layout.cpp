// SPDX-License-Identifier: MIT
#include "ui/controls/flow_layout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace chimewell {

FlowLayout::FlowLayout(int spacing, Last last, QWidget* parent) : QLayout(parent), last_(last)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(spacing);
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item)
{
    items_.emplace_back(item);
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count()) return nullptr;
    QLayoutItem* item = items_[static_cast<std::size_t>(index)].release();
    items_.erase(items_.begin() + index);
    return item;
}

QSize FlowLayout::sizeHint() const
{
    QSize size;
    for (const auto& item : items_) {
        if (item->isEmpty()) continue;
        const QSize hint = item->sizeHint();
        size = {size.width() + (size.isEmpty() ? 0 : spacing()) + hint.width(),
                std::max(size.height(), hint.height())};
    }
    return size.grownBy(contentsMargins());
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const auto& item : items_)
        if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
    return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect& area)
{
    QLayout::setGeometry(area);
    arrange(area, true);
}

int FlowLayout::arrange(const QRect& outer, bool places) const
{
    const QRect area = outer.marginsRemoved(contentsMargins());
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    std::vector<QLayoutItem*> shown;
    for (const auto& item : items_)
        if (!item->isEmpty()) shown.push_back(item.get());

    int top = area.top();
    for (std::size_t first = 0; first < shown.size();) {
        int width = 0;
        int height = 0;
        std::size_t end = first;
        for (; end < shown.size(); ++end) {
            const QSize hint = shown[end]->sizeHint();
            const int wanted = width + (end == first ? 0 : spacing()) + hint.width();
            if (end != first && wanted > area.width()) break;
            width = wanted;
            height = std::max(height, hint.height());
        }
        int left = area.left();
        for (std::size_t i = first; places && i < end; ++i) {
            const QSize hint = shown[i]->sizeHint().boundedTo(QSize(area.width(), QWIDGETSIZE_MAX));
            const bool isAloneBelow = i == first && first > 0;
            const bool trails = last_ == Last::trails && i + 1 == shown.size() && !isAloneBelow;
            if (trails) left = area.right() + 1 - hint.width();
            const QRect place(QPoint(left, top + (height - hint.height()) / 2), hint);
            shown[i]->setGeometry(QStyle::visualRect(direction, area, place));
            left += hint.width() + spacing();
        }
        first = end;
        top += height + (first < shown.size() ? spacing() : 0);
    }
    return top - area.top() + outer.height() - area.height();
}

}
