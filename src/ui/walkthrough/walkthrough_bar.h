// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/onboarding_steps.h"
#include "ui/words.h"

#include <QWidget>

class QPushButton;

namespace chimewell {

class StepDots;

/// The way through the steps: out of them, back, on.
class WalkthroughBar final : public QWidget {
    Q_OBJECT
public:
    explicit WalkthroughBar(const Words& words, QWidget* parent = nullptr);

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

}
