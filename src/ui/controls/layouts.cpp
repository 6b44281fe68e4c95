// SPDX-License-Identifier: MIT
#include "ui/controls/layouts.h"

#include "ui/look/metrics.h"

#include <QEvent>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double least = 120, beside = 12, below = 8;

int heightOf(const QLayoutItem& item, int width)
{
    return item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
}

}

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

RowLayout::RowLayout(QWidget* parent) : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
}

RowLayout::RowLayout(QWidget* label, QWidget* control, QWidget* parent) : RowLayout(parent)
{
    addWidget(label);
    addWidget(control);
}

RowLayout::~RowLayout() = default;

void RowLayout::addItem(QLayoutItem* item)
{
    items_.emplace_back(item);
}

QLayoutItem* RowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* RowLayout::takeAt(int index)
{
    if (index < 0 || index >= count()) return nullptr;
    QLayoutItem* item = items_[static_cast<std::size_t>(index)].release();
    items_.erase(items_.begin() + index);
    return item;
}

const QLayoutItem* RowLayout::shown(std::size_t index) const
{
    const QLayoutItem* item = index < items_.size() ? items_[index].get() : nullptr;
    return item && !item->isEmpty() ? item : nullptr;
}

RowLayout::Places RowLayout::places(int width) const
{
    Places result;
    const QLayoutItem* label = shown(0);
    const QLayoutItem* control = shown(1);
    const int controlWidth = control ? std::min(control->sizeHint().width(), width) : 0;
    const int wanted = label ? std::min(label->sizeHint().width(), scaled(least)) : 0;
    const int rest = std::max(0, width - controlWidth - scaled(beside));
    // Nobody reads a tall column of single words.
    const bool isBelow =
        label && control && (wanted > rest || heightOf(*label, rest) > 2 * heightOf(*label, width));
    const int labelWidth = isBelow || !control ? width : rest;
    const int labelHeight = label ? heightOf(*label, labelWidth) : 0;
    const int controlHeight = control ? heightOf(*control, controlWidth) : 0;
    if (isBelow) {
        result.label = QRect(0, 0, labelWidth, labelHeight);
        result.control = QRect(0, labelHeight + scaled(below), controlWidth, controlHeight);
        result.height = result.control.bottom() + 1;
        return result;
    }
    result.height = std::max(labelHeight, controlHeight);
    result.label = QRect(0, (result.height - labelHeight) / 2, labelWidth, labelHeight);
    result.control =
        QRect(width - controlWidth, (result.height - controlHeight) / 2, controlWidth, controlHeight);
    return result;
}

int RowLayout::heightForWidth(int width) const
{
    return places(width).height;
}

QSize RowLayout::sizeHint() const
{
    QSize size;
    for (const auto& item : items_) {
        if (item->isEmpty()) continue;
        const QSize hint = item->sizeHint();
        size = {size.width() + (size.width() > 0 ? scaled(beside) : 0) + hint.width(),
                std::max(size.height(), hint.height())};
    }
    return size;
}

QSize RowLayout::minimumSize() const
{
    QSize size;
    for (const auto& item : items_)
        if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
    return size;
}

void RowLayout::setGeometry(const QRect& area)
{
    QLayout::setGeometry(area);
    const Places where = places(area.width());
    const QPoint corner(area.left(), area.top() + std::max(0, area.height() - where.height) / 2);
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    const auto place = [&](std::size_t index, const QRect& at) {
        if (shown(index))
            items_[index]->setGeometry(QStyle::visualRect(direction, area, at.translated(corner)));
    };
    place(0, where.label);
    place(1, where.control);
}

FittingScrollArea::FittingScrollArea(QWidget* content, QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus); // what is in it has it
    viewport()->setAutoFillBackground(false);
    setWidget(content);
    content->setAutoFillBackground(false);
}

QSize FittingScrollArea::sizeHint() const
{
    const int width = widget()->hasHeightForWidth() ? this->width() : widget()->sizeHint().width();
    const int height =
        widget()->hasHeightForWidth() ? widget()->heightForWidth(width) : widget()->sizeHint().height();
    return {width, height};
}

bool FittingScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    // What is in a scroll area does not tell those around it by itself that it wants another size.
    if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

QSize FittingScrollArea::minimumSizeHint() const
{
    return {widget()->minimumSizeHint().width(), scaled(80)};
}

}
