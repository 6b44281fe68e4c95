// SPDX-License-Identifier: MIT
#include "ui/controls/disclosure.h"

#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace chimewell {

namespace {

constexpr int slideMilliseconds = 150;

constexpr double beforeText = 16, padding = 6;
constexpr double inside = 3; // from the edge of the arrow's square to the arrow
constexpr double foldButtonHeight = 24;

}

Disclosure::Disclosure(QWidget* content) : content_(content)
{
    content_->setParent(this);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    hide();
    slide_.setDuration(slideMilliseconds);
    connect(&slide_, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& share) { moveTo(share.toReal()); });
}

void Disclosure::setOpen(bool isOpen)
{
    if (isOpen == isOpen_) return;
    isOpen_ = isOpen;
    const bool isSeen = parentWidget() && parentWidget()->isVisible();
    const bool moves = isSeen && style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    slide_.stop();
    if (!moves) return moveTo(isOpen ? 1 : 0);
    slide_.setStartValue(share_);
    slide_.setEndValue(isOpen ? 1.0 : 0.0);
    slide_.start();
}

void Disclosure::moveTo(qreal share)
{
    share_ = share;
    setVisible(isOpen_ || share_ > 0);
    updateGeometry();
}

int Disclosure::contentHeight(int width) const
{
    return content_->hasHeightForWidth() ? content_->heightForWidth(width) : content_->sizeHint().height();
}

int Disclosure::heightForWidth(int width) const
{
    return static_cast<int>(std::lround(share_ * contentHeight(width)));
}

QSize Disclosure::sizeHint() const
{
    const QSize size = content_->sizeHint();
    return {size.width(), static_cast<int>(std::lround(share_ * size.height()))};
}

QSize Disclosure::minimumSizeHint() const
{
    return {content_->minimumSizeHint().width(), 0};
}

bool Disclosure::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) { // the content's size has changed
        place();
        updateGeometry();
    }
    return QWidget::event(event);
}

void Disclosure::resizeEvent(QResizeEvent*)
{
    place();
}

void Disclosure::place()
{
    // While sliding, the lower end of the content is visible.
    const int full = contentHeight(width());
    content_->setGeometry(0, height() - full, width(), full);
}

DisclosureButton::DisclosureButton(const QString& text)
{
    setText(text);
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

QSize DisclosureButton::sizeHint() const
{
    const QFontMetrics size(fontFor(TextStyle::body));
    return {scaled(beforeText) + size.horizontalAdvance(text()) + scaled(padding),
            std::max(scaled(foldButtonHeight), size.height() + scaled(4))};
}

void DisclosureButton::paintEvent(QPaintEvent*)
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
    paintTextLine(painter, placed(words), text(), layoutDirection());
    if (ChimewellStyle::showsFocus(this)) paintFocusRing(painter, rect(), scaled(metrics::controlRadius));
}

}
