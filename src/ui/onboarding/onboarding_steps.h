// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "presentation/onboarding_steps.h"

#include <QWidget>

namespace chimewell {

class TextLabel;

/// One step: a large icon, a title and a subtitle, always at the same height, and the content below.
class StepPage final : public QWidget {
    Q_OBJECT
public:
    /// The services outlive the page.
    StepPage(OnboardingStep step, Services& services);

    /// Gives the keyboard focus to the title, so that screen readers read it.
    void announce();

private:
    TextLabel* title_;
};

QWidget* makeInstallHooksStep(Services& services);
QWidget* makeSoundsStep(Services& services);

}
