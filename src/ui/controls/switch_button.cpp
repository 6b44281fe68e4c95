// SPDX-License-Identifier: MIT
#include "ui/controls/switch_button.h"

#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"

#include <QPainter>
#include <QSignalBlocker>

namespace chimewell {

namespace {

constexpr int slideMilliseconds = 120;
constexpr int ringRoom = 3; // around the switch, for the focus ring

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

}
