// SPDX-License-Identifier: MIT
#include "ui/walkthrough/walkthrough_bar.h"

#include "ui/controls/mnemonics.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/walkthrough/step_dots.h"
#include "values/texts.h"

#include <QEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QPainter>
#include <QPushButton>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double barHeight = 56;
constexpr double smallestButton = 84;

}

WalkthroughBar::WalkthroughBar(const Words& words, QWidget* parent)
    : QWidget(parent),
      words_(words),
      skip_(new QPushButton(words(texts::skipSetup))),
      dots_(new StepDots(words)),
      back_(new QPushButton(words(texts::back))),
      on_(new QPushButton)
{
    setMinimumHeight(scaled(barHeight));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    skip_->setFlat(true);
    followColours();
    ChimewellStyle::setDue(on_, true);
    // As wide with either word, so that it stays under the pointer.
    for (const Text& text : {texts::done, texts::continueButton}) {
        on_->setText(words_(text));
        on_->setMinimumWidth(
            std::max({scaled(smallestButton), on_->minimumWidth(), on_->sizeHint().width()}));
    }

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(scaled(8));
    buttons->addStretch(1);
    buttons->addWidget(back_);
    buttons->addWidget(on_);
    buttons->addSpacing(scaled(8));
    // The outer columns have the same width, so that the dots stand in the middle of the window.
    auto* columns = new QGridLayout(this);
    columns->setContentsMargins(scaled(8), 1 + scaled(8), scaled(8), scaled(8));
    columns->addWidget(skip_, 0, 0, Qt::AlignLeft);
    columns->addWidget(dots_, 0, 1);
    columns->addLayout(buttons, 0, 2);
    columns->setColumnStretch(0, 1);
    columns->setColumnStretch(2, 1);

    connect(skip_, &QPushButton::clicked, this, &WalkthroughBar::skipped);
    connect(back_, &QPushButton::clicked, this, &WalkthroughBar::wentBack);
    connect(on_, &QPushButton::clicked, this, &WalkthroughBar::wentOn);
}

void WalkthroughBar::show(OnboardingStep current)
{
    dots_->show(current);
    back_->setVisible(stepBefore(current).has_value());
    on_->setText(words_(stepAfter(current) ? texts::continueButton : texts::done));
    setMnemonics({skip_, back_, on_});
}

void WalkthroughBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(0, 0, width(), 1, colours().cardBorder());
}

void WalkthroughBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange) followColours();
}

void WalkthroughBar::followColours()
{
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::ButtonText, colours().secondary);
    skip_->setPalette(palette);
}

}
