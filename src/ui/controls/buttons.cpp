// SPDX-License-Identifier: MIT
#include "ui/controls/buttons.h"

#include "ui/controls/layouts.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>

#include <algorithm>

namespace chimewell {

namespace {

constexpr int slideMilliseconds = 120;
constexpr double textStart = 36;
constexpr double padding = 12;

constexpr double rowHeight = 44;

}

IconButton::IconButton(std::string_view symbol, const QString& name, QWidget* parent)
    : QAbstractButton(parent),
      symbol_(symbol)
{
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

void IconButton::setSymbol(std::string_view symbol)
{
    symbol_ = symbol;
    update();
}

QSize IconButton::sizeHint() const
{
    return {scaled(metrics::iconButton), scaled(metrics::iconButton)};
}

void IconButton::paintEvent(QPaintEvent*)
{
    const Colours& c = colours();
    QPainter painter(this);
    const int radius = scaled(metrics::controlRadius);
    if (isEnabled() && (isDown() || underMouse()))
        fillRounded(painter, rect(), radius, c.wash(isDown() ? Colours::pressed : Colours::hover));
    const QColor ink =
        isEnabled() ? (underMouse() ? c.text : c.secondary) : Colours::faint(c.text, Colours::disabled);
    paintSymbol(painter, symbol_, rect(), scaled(metrics::rowIcon), ink, layoutDirection());
    if (ChimewellStyle::showsFocus(this)) paintFocusRing(painter, rect(), radius);
}

LinkButton::LinkButton(const QString& text, QWidget* parent) : QPushButton(text, parent)
{
    setFlat(true);
    setAutoDefault(false);
    follow();
}

void LinkButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange) follow();
}

void LinkButton::follow()
{
    if (isFollowing_) return;
    isFollowing_ = true;
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::ButtonText, colours().accentText);
    setPalette(palette);
    isFollowing_ = false;
}

SwitchButton::SwitchButton(const QString& name, QWidget* parent) : QAbstractButton(parent)
{
    setCheckable(true);
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    knob_.setDuration(slideMilliseconds);
    connect(&knob_, &QVariantAnimation::valueChanged, this, [this](const QVariant& place) {
        place_ = place.toReal();
        update();
    });
    connect(this, &QAbstractButton::toggled, this, [this] { slide(); });
}

void SwitchButton::show(bool isOn)
{
    if (isOn == isChecked() && knob_.state() == QAbstractAnimation::Running) return; // on its way there
    const QSignalBlocker silence(this);
    setChecked(isOn);
    knob_.stop();
    place_ = isOn ? 1 : 0;
    update();
}

QSize SwitchButton::sizeHint() const
{
    return {scaled(metrics::switchWidth) + 2 * ringRoom, scaled(metrics::switchHeight) + 2 * ringRoom};
}

void SwitchButton::slide()
{
    const qreal end = isChecked() ? 1 : 0;
    const bool isStill =
        !isVisible() || !style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    knob_.stop();
    if (isStill) {
        place_ = end;
        update();
        return;
    }
    knob_.setStartValue(place_);
    knob_.setEndValue(end);
    knob_.start();
}

void SwitchButton::paintEvent(QPaintEvent*)
{
    const Colours& c = colours();
    QPainter painter(this);
    if (!isEnabled()) painter.setOpacity(Colours::disabled);
    const QSizeF size(scaled(metrics::switchWidth), scaled(metrics::switchHeight));
    const QRectF track(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);
    fillRounded(painter, track, size.height() / 2, isChecked() ? c.accent : c.outline);
    const qreal side = scaled(metrics::knob);
    const qreal inset = (size.height() - side) / 2;
    const qreal along = layoutDirection() == Qt::RightToLeft ? 1 - place_ : place_;
    const QRectF knob(track.left() + inset + along * (size.width() - side - 2 * inset), track.top() + inset,
                      side, side);
    fillRounded(painter, knob, side / 2, isChecked() ? c.onAccent : c.knobOff());
    if (ChimewellStyle::showsFocus(this)) {
        const QRectF ring = track.adjusted(-ringRoom, -ringRoom, ringRoom, ringRoom);
        paintFocusRing(painter, ring, ring.height() / 2);
    }
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
