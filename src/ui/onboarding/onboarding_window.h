// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "presentation/onboarding_steps.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"

#include <QWidget>

#include <vector>

class QPushButton;
class QStackedWidget;

namespace chimewell {

class StepPage;

/// One dot for each step; the current one stands out.
class StepDots final : public QWidget {
    Q_OBJECT
public:
    explicit StepDots(const Words& words, QWidget* parent = nullptr);

    void show(OnboardingStep current);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Words words_;
    OnboardingStep current_ = OnboardingStep::welcome;
};

/// The way through the steps: out of them, back, on.
class OnboardingBar final : public QWidget {
    Q_OBJECT
public:
    explicit OnboardingBar(const Words& words, QWidget* parent = nullptr);

    void show(OnboardingStep current);

Q_SIGNALS:
    void skipped();
    void wentBack();
    void wentOn();

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void followColours();

    Words words_;
    QPushButton* skip_;
    StepDots* dots_;
    QPushButton* back_;
    QPushButton* on_;
};

/// Leads through the set-up in five steps, each of which may be skipped. However the user ends it, it does
/// not open by itself again, and it deletes itself.
class OnboardingWindow final : public QWidget {
    Q_OBJECT
public:
    explicit OnboardingWindow(Services& services, QWidget* parent = nullptr);

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
    OnboardingBar* bar_;
};

}
