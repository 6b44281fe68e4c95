// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "presentation/onboarding_steps.h"

#include <QWidget>

#include <vector>

class QStackedWidget;

namespace chimewell {

class OnboardingBar;
class StepPage;

/// Leads through the set-up in five steps, each of which may be skipped. Deletes itself when it is closed,
/// and records that it need not open by itself again.
class OnboardingWindow final : public QWidget {
    Q_OBJECT
public:
    explicit OnboardingWindow(Services& services);

    using QWidget::show;
    void show(OnboardingStep step);

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void goOn();
    void fit();
    void refresh();

    Services& services_;
    OnboardingStep step_ = OnboardingStep::welcome;
    bool didEnterRegular_ = false;
    QStackedWidget* stack_;
    std::vector<StepPage*> pages_; ///< In the order of the steps.
    OnboardingBar* bar_;
};

}
