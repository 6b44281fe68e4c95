// SPDX-License-Identifier: MIT
#include "ui/walkthrough/step_dots.h"

#include "ui/controls/accessible_role.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "values/texts.h"

#include <QPainter>

namespace chimewell {

namespace {

constexpr double largeDot = 8;
constexpr double smallDot = 6;
constexpr double distance = 16; // between the middles of two
constexpr auto count = static_cast<int>(allOnboardingSteps.size());

}

StepDots::StepDots(const Words& words, QWidget* parent) : QWidget(parent), words_(words)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleRole(this, QAccessible::StaticText);
    show(current_);
}

void StepDots::show(OnboardingStep current)
{
    current_ = current;
    const std::string number = std::to_string(static_cast<int>(current) + 1);
    setAccessibleName(words_({texts::stepOf, {number, std::to_string(count)}}));
    update();
}

QSize StepDots::sizeHint() const
{
    return {(count - 1) * scaled(distance) + scaled(largeDot), scaled(largeDot)};
}

void StepDots::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int i = 0; i < count; ++i) {
        const bool isCurrent = i == static_cast<int>(current_);
        const int place = layoutDirection() == Qt::RightToLeft ? count - 1 - i : i;
        const qreal side = scaled(isCurrent ? largeDot : smallDot);
        QRectF dot(0, 0, side, side);
        dot.moveCenter({scaled(largeDot) / 2.0 + place * scaled(distance), height() / 2.0});
        fillRounded(painter, dot, side / 2, isCurrent ? colours().accentText : colours().outline);
    }
}

}
