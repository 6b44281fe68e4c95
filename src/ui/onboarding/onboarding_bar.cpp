// SPDX-License-Identifier: MIT
#include "ui/onboarding/onboarding_bar.h"

#include "ui/controls/accessibility.h"
#include "ui/controls/buttons.h"
#include "ui/controls/layouts.h"
#include "ui/controls/windows.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "values/texts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>

namespace chimewell {

namespace {

constexpr double largeDot = 8, smallDot = 6;
constexpr double distance = 16; // between the middles of two
constexpr double barHeight = 56;
constexpr auto count = static_cast<int>(allOnboardingSteps.size());

}

/// One dot for each step; the current one is larger.
class StepDots final : public QWidget {
public:
    explicit StepDots(const Words& words);

    void show(OnboardingStep current);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Words words_;
    OnboardingStep current_ = OnboardingStep::welcome;
};

StepDots::StepDots(const Words& words) : words_(words)
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

OnboardingBar::OnboardingBar(const Words& words)
    : words_(words),
      skip_(new LinkButton(words(texts::skipSetup), Tone::secondary)),
      dots_(new StepDots(words)),
      back_(new QPushButton(words(texts::back))),
      on_(new QPushButton)
{
    setMinimumHeight(scaled(barHeight));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    ChimewellStyle::setPrimary(on_, true);
    reserveWidth(*on_, {words_(texts::done), words_(texts::continueButton)});

    auto* buttons = makeLine(nullptr, 8);
    buttons->addStretch(1);
    buttons->addWidget(back_);
    buttons->addWidget(on_);
    buttons->addSpacing(scaled(8));
    // The outer columns have the same width, so that the dots are in the middle of the window.
    auto* columns = new QGridLayout(this);
    columns->setContentsMargins(scaled(8), 1 + scaled(8), scaled(8), scaled(8));
    columns->addWidget(skip_, 0, 0, Qt::AlignLeft);
    columns->addWidget(dots_, 0, 1);
    columns->addLayout(buttons, 0, 2);
    columns->setColumnStretch(0, 1);
    columns->setColumnStretch(2, 1);

    connect(skip_, &QPushButton::clicked, this, &OnboardingBar::skipped);
    connect(back_, &QPushButton::clicked, this, &OnboardingBar::wentBack);
    connect(on_, &QPushButton::clicked, this, &OnboardingBar::wentOn);
}

void OnboardingBar::show(OnboardingStep current)
{
    dots_->show(current);
    back_->setVisible(stepBefore(current).has_value());
    on_->setText(words_(stepAfter(current) ? texts::continueButton : texts::done));
    setMnemonics({skip_, back_, on_});
}

void OnboardingBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(0, 0, width(), 1, colours().cardBorder());
}

}
