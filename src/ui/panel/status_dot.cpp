// SPDX-License-Identifier: MIT
#include "ui/panel/status_dot.h"

#include "ui/look/colours.h"
#include "ui/look/paint.h"

#include <QPainter>

namespace chimewell {

StatusDot::StatusDot(QWidget* parent) : QWidget(parent)
{
    setFixedSize(8, 8);
}

void StatusDot::setTone(Tone tone)
{
    tone_ = tone;
    update();
}

void StatusDot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    fillRounded(painter, rect(), width() / 2.0, colours().mark(tone_));
}

}
