// SPDX-License-Identifier: MIT
#include "ui/onboarding/onboarding_window.h"

#include "ui/controls/accessibility.h"
#include "ui/controls/layouts.h"
#include "ui/controls/windows.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/onboarding/install_hooks_step.h"
#include "ui/onboarding/onboarding_steps.h"
#include "ui/onboarding/sounds_step.h"
#include "values/texts.h"

#include <QEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double largeDot = 8;
constexpr double smallDot = 6;
constexpr double distance = 16; // between the middles of two
constexpr auto count = static_cast<int>(allOnboardingSteps.size());

constexpr double barHeight = 56;
constexpr double smallestButton = 84;

constexpr double windowWidth = 600;
constexpr double windowHeight = 560;
constexpr int aroundWindow = 32; // of the screen, for frame and title

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

OnboardingBar::OnboardingBar(const Words& words, QWidget* parent)
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

void OnboardingBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange) followColours();
}

void OnboardingBar::followColours()
{
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::ButtonText, colours().secondary);
    skip_->setPalette(palette);
}

OnboardingWindow::OnboardingWindow(Services& services, QWidget* parent)
    : QWidget(parent, Qt::Window),
      services_(services),
      words_(services.ports.translator),
      stack_(new QStackedWidget),
      bar_(new OnboardingBar(words_))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(words_(texts::walkthroughTitle));
    setAccessibleRole(this, QAccessible::Window);
    services_.cards.clearMessages(); // from another time
    for (const OnboardingStep step : allOnboardingSteps)
        addStep(step);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(stack_, 1);
    layout->addWidget(bar_);
    connect(bar_, &OnboardingBar::skipped, this, &QWidget::close);
    connect(bar_, &OnboardingBar::wentBack, this, [this] { goBack(); });
    connect(bar_, &OnboardingBar::wentOn, this, [this] { goOn(); });
    show(step_);
}

void OnboardingWindow::addStep(OnboardingStep step)
{
    pages_.push_back(new StepPage(step, makeContent(step), words_));
    stack_->addWidget(new FittingScrollArea(pages_.back()));
}

QWidget* OnboardingWindow::makeContent(OnboardingStep step)
{
    switch (step) {
    case OnboardingStep::welcome:
        return new WelcomeStep(words_);
    case OnboardingStep::howItWorks:
        return new HowItWorksStep(words_);
    case OnboardingStep::notifications:
        return new NotificationsStep(services_);
    case OnboardingStep::installHooks:
        return new InstallHooksStep(services_.cards, words_);
    case OnboardingStep::sounds:
        break;
    }
    return new SoundsStep(services_);
}

void OnboardingWindow::show(OnboardingStep step)
{
    step_ = step;
    const auto index = static_cast<int>(step);
    // The title has the keyboard before the old step goes. Otherwise it would pass through other controls on
    // its way, and each would be read aloud.
    stack_->widget(index)->show();
    pages_[static_cast<std::size_t>(step)]->announce();
    stack_->setCurrentIndex(index);
    bar_->show(step);
}

void OnboardingWindow::goBack()
{
    if (const auto before = stepBefore(step_)) show(*before);
}

void OnboardingWindow::goOn()
{
    if (const auto after = stepAfter(step_))
        show(*after);
    else
        close();
}

void OnboardingWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous()) return; // it was minimised
    if (!didEnterRegular_) {
        didEnterRegular_ = true;
        services_.actions.beginOnboarding();
    }
    fit();
    refresh();
}

void OnboardingWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) refresh();
}

void OnboardingWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        close();
    } else if (isReturn) {
        // Somebody who sees the ring on a button means that one.
        auto* focused = qobject_cast<QPushButton*>(focusWidget());
        if (focused && ChimewellStyle::showsFocus(focused))
            focused->click();
        else
            goOn();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void OnboardingWindow::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    services_.actions.completeOnboarding();
    Q_EMIT ended();
}

void OnboardingWindow::fit()
{
    const QSize free = screen()->availableGeometry().size().shrunkBy({0, 0, aroundWindow, aroundWindow});
    const int width = std::min(scaled(windowWidth), free.width());
    int height = scaled(windowHeight);
    for (StepPage* page : pages_)
        height = std::max(height, page->heightForWidth(width) + bar_->sizeHint().height());
    setMinimumSize(width, std::min(height, free.height()));
    resize(minimumSize());
}

void OnboardingWindow::refresh()
{
    services_.notifications.refreshStatus();
    services_.cards.refresh();
}

}
