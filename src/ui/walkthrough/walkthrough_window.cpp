// SPDX-License-Identifier: MIT
#include "ui/walkthrough/walkthrough_window.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/fitting_scroll_area.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/metrics.h"
#include "ui/walkthrough/how_it_works_step.h"
#include "ui/walkthrough/install_hooks_step.h"
#include "ui/walkthrough/notifications_step.h"
#include "ui/walkthrough/sounds_step.h"
#include "ui/walkthrough/step_page.h"
#include "ui/walkthrough/walkthrough_bar.h"
#include "ui/walkthrough/welcome_step.h"
#include "values/texts.h"

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

WalkthroughWindow::WalkthroughWindow(Services& services, QWidget* parent)
    : QWidget(parent, Qt::Window),
      services_(services),
      words_(services.ports.translator),
      stack_(new QStackedWidget),
      bar_(new WalkthroughBar(words_))
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
    connect(bar_, &WalkthroughBar::skipped, this, &QWidget::close);
    connect(bar_, &WalkthroughBar::wentBack, this, [this] { goBack(); });
    connect(bar_, &WalkthroughBar::wentOn, this, [this] { goOn(); });
    show(step_);
}

void WalkthroughWindow::addStep(OnboardingStep step)
{
    pages_.push_back(new StepPage(step, makeContent(step), words_));
    stack_->addWidget(new FittingScrollArea(pages_.back()));
}

QWidget* WalkthroughWindow::makeContent(OnboardingStep step)
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

void WalkthroughWindow::show(OnboardingStep step)
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

void WalkthroughWindow::goBack()
{
    if (const auto before = stepBefore(step_)) show(*before);
}

void WalkthroughWindow::goOn()
{
    if (const auto after = stepAfter(step_))
        show(*after);
    else
        close();
}

void WalkthroughWindow::showEvent(QShowEvent* event)
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

void WalkthroughWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) refresh();
}

void WalkthroughWindow::keyPressEvent(QKeyEvent* event)
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

void WalkthroughWindow::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    services_.actions.completeOnboarding();
    Q_EMIT ended();
}

void WalkthroughWindow::fit()
{
    const QSize free = screen()->availableGeometry().size().shrunkBy({0, 0, aroundWindow, aroundWindow});
    const int width = std::min(scaled(windowWidth), free.width());
    int height = scaled(windowHeight);
    for (StepPage* page : pages_)
        height = std::max(height, page->heightForWidth(width) + bar_->sizeHint().height());
    setMinimumSize(width, std::min(height, free.height()));
    resize(minimumSize());
}

void WalkthroughWindow::refresh()
{
    services_.notifications.refreshStatus();
    services_.cards.refresh();
}

}
