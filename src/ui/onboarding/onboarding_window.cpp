// SPDX-License-Identifier: MIT
#include "ui/onboarding/onboarding_window.h"

#include "ui/controls/accessibility.h"
#include "ui/controls/layouts.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/metrics.h"
#include "ui/onboarding/onboarding_bar.h"
#include "ui/onboarding/onboarding_steps.h"
#include "values/texts.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double windowWidth = 600;
constexpr double windowHeight = 560;
constexpr int aroundWindow = 32; // of the screen, for frame and title

}

OnboardingWindow::OnboardingWindow(Services& services)
    : QWidget(nullptr, Qt::Window),
      services_(services),
      stack_(new QStackedWidget),
      bar_(new OnboardingBar(Words(services.ports.translator)))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(Words(services.ports.translator)(texts::walkthroughTitle));
    setAccessibleRole(this, QAccessible::Window);
    services_.cards.clearMessages(); // from another time
    for (const OnboardingStep step : allOnboardingSteps) {
        pages_.push_back(new StepPage(step, services_));
        stack_->addWidget(new FittingScrollArea(pages_.back()));
    }
    auto* layout = makeColumn(this);
    layout->addWidget(stack_, 1);
    layout->addWidget(bar_);
    connect(bar_, &OnboardingBar::skipped, this, &QWidget::close);
    connect(bar_, &OnboardingBar::wentBack, this, [this] {
        if (const auto before = stepBefore(step_)) show(*before);
    });
    connect(bar_, &OnboardingBar::wentOn, this, [this] { goOn(); });
    show(step_);
}

void OnboardingWindow::show(OnboardingStep step)
{
    step_ = step;
    const auto index = static_cast<int>(step);
    // The title has the keyboard focus before the old step is hidden. Otherwise the focus would pass through
    // other controls, and screen readers would read each of them.
    stack_->widget(index)->show();
    pages_[static_cast<std::size_t>(step)]->announce();
    stack_->setCurrentIndex(index);
    bar_->show(step);
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
        // With a focus ring, the key belongs to that button.
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
