// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "presentation/onboarding_steps.h"
#include "ui/windows.h"
#include "ui/words.h"

#include <QWidget>

#include <vector>

class QStackedWidget;

namespace chimewell {

class StepPage;
class WalkthroughBar;

/// Leads through the set-up in five steps, each of which may be skipped. However the user ends it, it does
/// not open by itself again, and it deletes itself.
class WalkthroughWindow final : public QWidget {
    Q_OBJECT
public:
    explicit WalkthroughWindow(Services& services, QWidget* parent = nullptr);

    using QWidget::show;
    void show(OnboardingStep step);

Q_SIGNALS:
    /// By Done, by Skip setup, or because it was closed.
    void ended();

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void addStep(OnboardingStep step);
    QWidget* makeContent(OnboardingStep step);
    void goBack();
    void goOn();
    void fit();
    void refresh();

    Services& services_;
    const Words words_;
    OnboardingStep step_ = OnboardingStep::welcome;
    bool didEnterRegular_ = false;
    QStackedWidget* stack_;
    std::vector<StepPage*> pages_; ///< In the order of the steps.
    WalkthroughBar* bar_;
};

}
