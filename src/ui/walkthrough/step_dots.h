// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/onboarding_steps.h"
#include "ui/words.h"

#include <QWidget>

namespace chimewell {

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

}
