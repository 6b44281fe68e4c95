// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace chimewell {

enum class OnboardingStep : std::uint8_t { welcome, howItWorks, notifications, installHooks, sounds };

inline constexpr std::array allOnboardingSteps = {
    OnboardingStep::welcome,      OnboardingStep::howItWorks, OnboardingStep::notifications,
    OnboardingStep::installHooks, OnboardingStep::sounds,
};

/// The top of a step.
struct StepHeading {
    std::string_view icon;
    Text title;
    Text subtitle;
};
StepHeading heading(OnboardingStep step);

/// Absent before the first and after the last step.
std::optional<OnboardingStep> stepBefore(OnboardingStep step);
std::optional<OnboardingStep> stepAfter(OnboardingStep step);

}
