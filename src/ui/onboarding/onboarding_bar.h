// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/onboarding_steps.h"
#include "ui/look/words.h"

#include <QWidget>

class QPushButton;

namespace chimewell {

class StepDots;

/// The bottom of the onboarding window: a button that skips it, which step it is, Back and Continue.
class OnboardingBar final : public QWidget {
    Q_OBJECT
public:
    explicit OnboardingBar(const Words& words);

    void show(OnboardingStep current);

Q_SIGNALS:
    void skipped();
    void wentBack();
    void wentOn();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Words words_;
    QPushButton* skip_;
    StepDots* dots_;
    QPushButton* back_;
    QPushButton* on_;
};

}
