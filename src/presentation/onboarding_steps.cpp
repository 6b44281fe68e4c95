// SPDX-License-Identifier: MIT
#include "presentation/onboarding_steps.h"

#include "values/texts.h"

#include <cstddef>

namespace chimewell {

StepHeading heading(OnboardingStep step)
{
    switch (step) {
    case OnboardingStep::welcome:
        return {"bell.badge", texts::welcomeTitle, texts::welcomeSubtitle};
    case OnboardingStep::howItWorks:
        return {"point.3.connected.trianglepath.dotted", texts::howItWorksTitle, texts::howItWorksSubtitle};
    case OnboardingStep::notifications:
        return {"app.badge", texts::notificationsTitle, texts::notificationsSubtitle};
    case OnboardingStep::installHooks:
        return {"puzzlepiece.extension", texts::agentsTitle, texts::agentsSubtitle};
    case OnboardingStep::sounds:
        break;
    }
    return {"speaker.wave.2", texts::soundsTitle, texts::soundsSubtitle};
}

std::optional<OnboardingStep> stepBefore(OnboardingStep step)
{
    if (step == allOnboardingSteps.front()) return std::nullopt;
    return allOnboardingSteps[static_cast<std::size_t>(step) - 1];
}

std::optional<OnboardingStep> stepAfter(OnboardingStep step)
{
    if (step == allOnboardingSteps.back()) return std::nullopt;
    return allOnboardingSteps[static_cast<std::size_t>(step) + 1];
}

}
