// SPDX-License-Identifier: MIT
#include "ui/controls/inputs.h"

#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"
#include "values/sound_option.h"

#include <QHideEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>
#include <QWheelEvent>

#include <algorithm>

namespace chimewell {

namespace {

constexpr int firstRepeatMilliseconds = 400;
constexpr int nextRepeatMilliseconds = 120;
constexpr double halfWidth = 28;
constexpr double stepperHeight = 24;

}

Field::Field(const QString& name)
{
    setAccessibleName(name);
    setTextMargins(scaled(7), 0, scaled(7), 0);
}

void Field::showText(const QString& text)
{
    if (!hasFocus() && text != this->text()) setText(text);
}

void Field::hideEvent(QHideEvent* event)
{
    QLineEdit::hideEvent(event);
    // The window was closed, or the field hidden, while somebody was writing in it.
    if (isModified()) Q_EMIT editingFinished();
}

Picker::Picker(const QString& name)
{
    setAccessibleName(name);
    // Assistive technology shows the current entry instead of a picker's name.
    setAccessibleDescription(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
}

void Picker::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

SoundPicker::SoundPicker(const Words& words, const QString& name) : Picker(name)
{
    for (const SoundOption& option : SoundOption::all())
        addItem(words(option.displayName));
    connect(this, &QComboBox::activated, this, [this](int index) {
        Q_EMIT soundChosen(SoundOption::all()[static_cast<std::size_t>(index)].id);
    });
}

void SoundPicker::show(std::string_view soundId)
{
    const auto& all = SoundOption::all();
    const auto found = std::ranges::find(all, soundId, &SoundOption::id);
    setCurrentIndex(found == all.end() ? -1 : static_cast<int>(found - all.begin()));
}

Stepper::Stepper(const QString& name)
{
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    lineEdit()->hide();
}

QSize Stepper::sizeHint() const
{
    return {2 * scaled(halfWidth), scaled(stepperHeight)};
}

void Stepper::paintEvent(QPaintEvent*)
{
    const Colours& c = colours();
    QPainter painter(this);
    const int radius = scaled(metrics::controlRadius);
    fillRounded(painter, rect(), radius, c.overlay(Colours::buttonRest));
    const bool leftwards = layoutDirection() == Qt::RightToLeft;
    for (const int half : {-1, 1}) {
        const bool isLeft = (half < 0) != leftwards;
        const QRectF area(isLeft ? 0 : width() / 2.0, 0, width() / 2.0, height());
        const bool canStep = half < 0 ? value() > minimum() : value() < maximum();
        if (pressed_ == half && canStep) {
            painter.save();
            painter.setClipRect(area);
            fillRounded(painter, rect(), radius, c.overlay(Colours::buttonRest));
            painter.restore();
        }
        const QColor colour = canStep ? c.text : Colours::faint(c.text, Colours::disabled);
        paintSymbol(painter, half < 0 ? "minus" : "plus", area, scaled(14), colour);
    }
    painter.fillRect(QRectF(width() / 2.0 - 0.5, height() * 0.2, 1, height() * 0.6), c.overlay(0.2));
    if (ChimewellStyle::showsFocus(this)) paintFocusRing(painter, rect(), radius);
}

int Stepper::halfAt(const QPoint& position) const
{
    const bool isLeft = position.x() < width() / 2;
    return isLeft != (layoutDirection() == Qt::RightToLeft) ? -1 : 1;
}

void Stepper::repeatAfter(int milliseconds)
{
    if (timer_ != 0) killTimer(timer_);
    timer_ = milliseconds > 0 ? startTimer(milliseconds) : 0;
}

void Stepper::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    pressed_ = halfAt(event->pos());
    stepBy(pressed_);
    repeatAfter(firstRepeatMilliseconds);
    update();
}

void Stepper::mouseReleaseEvent(QMouseEvent*)
{
    pressed_ = 0;
    repeatAfter(0);
    update();
}

void Stepper::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != timer_) return QSpinBox::timerEvent(event);
    stepBy(pressed_);
    repeatAfter(nextRepeatMilliseconds);
}

void Stepper::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // the pane scrolls
}

void Stepper::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Plus:
        return stepBy(1);
    case Qt::Key_Minus:
        return stepBy(-1);
    case Qt::Key_Home:
        return setValue(minimum());
    case Qt::Key_End:
        return setValue(maximum());
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return QSpinBox::keyPressEvent(event);
    default:
        event->ignore();
    }
}

}
