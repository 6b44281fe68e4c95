// SPDX-License-Identifier: MIT
#include "ui/controls/fitting_scroll_area.h"

#include "ui/look/metrics.h"

#include <QEvent>

namespace chimewell {

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
