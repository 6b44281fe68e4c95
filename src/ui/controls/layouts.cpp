// SPDX-License-Identifier: MIT
#include "ui/controls/layouts.h"

#include "ui/look/metrics.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QStyle>
#include <QVBoxLayout>
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

QVBoxLayout* makeColumn(QWidget* holder, double spacing)
{
    auto* column = new QVBoxLayout(holder);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(spacing));
    return column;
}

QHBoxLayout* makeLine(QWidget* holder, double spacing)
{
    auto* line = new QHBoxLayout(holder);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(scaled(spacing));
    return line;
}

QWidget* padded(QWidget* content, const QMargins& margins)
{
    auto* holder = new QWidget;
    auto* column = makeColumn(holder);
    column->setContentsMargins(margins);
    column->addWidget(content);
    return holder;
}

ListLayout::ListLayout(int spacing, QWidget* parent) : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(spacing);
}

QLayoutItem* ListLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* ListLayout::takeAt(int index)
{
    if (index < 0 || index >= count()) return nullptr;
    QLayoutItem* item = items_[static_cast<std::size_t>(index)].release();
    items_.erase(items_.begin() + index);
    return item;
}

QSize ListLayout::sizeHint() const
{
    QSize size;
    for (const QLayoutItem* item : shownItems()) {
        const QSize hint = item->sizeHint();
        size = {size.width() + (size.isEmpty() ? 0 : spacing()) + hint.width(),
                std::max(size.height(), hint.height())};
    }
    return size;
}

QSize ListLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem* item : shownItems())
        size = size.expandedTo(item->minimumSize());
    return size;
}

std::vector<QLayoutItem*> ListLayout::shownItems() const
{
    std::vector<QLayoutItem*> shown;
    for (const auto& item : items_)
        if (!item->isEmpty()) shown.push_back(item.get());
    return shown;
}

Qt::LayoutDirection ListLayout::direction() const
{
    return parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
}

FlowLayout::FlowLayout(int spacing, Last last, QWidget* parent) : ListLayout(spacing, parent), last_(last) {}

void FlowLayout::setGeometry(const QRect& area)
{
    QLayout::setGeometry(area);
    arrange(area, true);
}

int FlowLayout::arrange(const QRect& area, bool places) const
{
    const std::vector<QLayoutItem*> shown = shownItems();
    int top = area.top();
    for (std::size_t first = 0; first < shown.size();) {
        int width = 0;
        int height = 0;
        std::size_t end = first;
        for (; end < shown.size(); ++end) {
            const QSize hint = shown[end]->sizeHint();
            const int longer = width + (end == first ? 0 : spacing()) + hint.width();
            if (end != first && longer > area.width()) break;
            width = longer;
            height = std::max(height, hint.height());
        }
        int left = area.left();
        for (std::size_t i = first; places && i < end; ++i) {
            const QSize hint = shown[i]->sizeHint().boundedTo(QSize(area.width(), QWIDGETSIZE_MAX));
            const bool isAloneBelow = i == first && first > 0;
            const bool trails = last_ == Last::trails && i + 1 == shown.size() && !isAloneBelow;
            if (trails) left = area.right() + 1 - hint.width();
            const QRect place(QPoint(left, top + (height - hint.height()) / 2), hint);
            shown[i]->setGeometry(QStyle::visualRect(direction(), area, place));
            left += hint.width() + spacing();
        }
        first = end;
        top += height + (first < shown.size() ? spacing() : 0);
    }
    return top - area.top();
}

RowLayout::RowLayout(QWidget* label, QWidget* control) : ListLayout(scaled(beside), nullptr)
{
    addWidget(label);
    addWidget(control);
}

QLayoutItem* RowLayout::shown(int index) const
{
    QLayoutItem* item = itemAt(index);
    return item && !item->isEmpty() ? item : nullptr;
}

RowLayout::Places RowLayout::places(int width) const
{
    Places result;
    const QLayoutItem* label = shown(0);
    const QLayoutItem* control = shown(1);
    const int controlWidth = control ? std::min(control->sizeHint().width(), width) : 0;
    const int needed = label ? std::min(label->sizeHint().width(), scaled(least)) : 0;
    const int rest = std::max(0, width - controlWidth - spacing());
    // The label is not squeezed into a narrow column of single words.
    const bool isBelow =
        label && control && (needed > rest || heightOf(*label, rest) > 2 * heightOf(*label, width));
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

void RowLayout::setGeometry(const QRect& area)
{
    QLayout::setGeometry(area);
    const Places where = places(area.width());
    const QPoint corner(area.left(), area.top() + std::max(0, area.height() - where.height) / 2);
    const auto place = [&](QLayoutItem* item, const QRect& at) {
        if (item) item->setGeometry(QStyle::visualRect(direction(), area, at.translated(corner)));
    };
    place(shown(0), where.label);
    place(shown(1), where.control);
}

void setScrolledContent(QScrollArea& area, QWidget* content)
{
    area.setFrameShape(QFrame::NoFrame);
    area.setWidgetResizable(true);
    area.setFocusPolicy(Qt::NoFocus); // the content's controls have it
    area.viewport()->setAutoFillBackground(false);
    area.setWidget(content);
    content->setAutoFillBackground(false);
}

FittingScrollArea::FittingScrollArea(QWidget* content)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setScrolledContent(*this, content);
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
    // A scroll area does not tell its layout by itself that its content's size has changed.
    if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

QSize FittingScrollArea::minimumSizeHint() const
{
    return {widget()->minimumSizeHint().width(), scaled(80)};
}

}
