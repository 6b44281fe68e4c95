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
constexpr double menuLineHeight = 30, menuTextStart = 36, menuEdge = 12, cardRowHeight = 44;

}

IconButton::IconButton(std::string_view symbol, const QString& name) : symbol_(symbol)
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
    paintButtonBackground(painter, *this, scaled(metrics::controlRadius));
    const QColor colour =
        isEnabled() ? (underMouse() ? c.text : c.secondary) : Colours::faint(c.text, Colours::disabled);
    paintSymbol(painter, symbol_, rect(), scaled(metrics::rowIcon), colour, layoutDirection());
}

void reserveWidth(QPushButton& button, std::initializer_list<QString> texts)
{
    int width = scaled(metrics::smallestButton);
    for (const QString& text : texts) {
        button.setText(text);
        width = std::max(width, button.sizeHint().width());
    }
    button.setMinimumWidth(width);
}

LinkButton::LinkButton(const QString& text, Tone tone) : QPushButton(text), tone_(tone)
{
    setFlat(true);
    applyColour();
}

void LinkButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange) applyColour();
}

void LinkButton::applyColour()
{
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::ButtonText, colours().textColour(tone_));
    setPalette(palette);
}

SwitchButton::SwitchButton(const QString& name)
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

RowButton::RowButton(Kind kind, std::string_view symbol, const QString& text) : kind_(kind), symbol_(symbol)
{
    setText(text);
    setAccessibleName(text);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize RowButton::sizeHint() const
{
    const QFontMetrics size(fontFor(TextStyle::body));
    const int words = size.horizontalAdvance(text());
    if (kind_ == Kind::menuLine)
        return {scaled(menuTextStart) + words + scaled(menuEdge),
                std::max(scaled(menuLineHeight), size.height() + scaled(8))};
    return {words + 2 * scaled(cardEdge) + scaled(8) + scaled(metrics::rowIcon),
            std::max(scaled(cardRowHeight), size.height() + 2 * scaled(8))};
}

void RowButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool isMenuLine = kind_ == Kind::menuLine;
    const int side = scaled(metrics::rowIcon);
    const int edge = isMenuLine ? scaled(menuEdge) : inRow(cardEdge);
    // In a card, the radius is the card's, just inside its border; the arrow does not fill its square.
    paintButtonBackground(painter, *this,
                          isMenuLine ? scaled(metrics::controlRadius) : scaled(metrics::cardRadius) - 1);
    const QRect symbol(isMenuLine ? edge : width() - edge - side + scaled(4), 0, side, height());
    const QRect words = isMenuLine ? rect().adjusted(scaled(menuTextStart), 0, -edge, 0)
                                   : rect().adjusted(edge, 0, -edge - side - scaled(8), 0);
    paintSymbol(painter, symbol_, QStyle::visualRect(layoutDirection(), rect(), symbol), side,
                colours().secondary, layoutDirection());
    painter.setPen(colours().text);
    painter.setFont(fontFor(TextStyle::body));
    paintTextLine(painter, QStyle::visualRect(layoutDirection(), rect(), words), text(), layoutDirection());
}

}
