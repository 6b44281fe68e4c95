// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/onboarding_steps.h"
#include "ui/words.h"

#include <QWidget>

namespace chimewell {

class TextLabel;

/// What stands at the top of a step: a large icon, a title and a subtitle.
class StepHeader final : public QWidget {
    Q_OBJECT
public:
    StepHeader(const StepHeading& heading, const Words& words, QWidget* parent = nullptr);

    /// Gives the keyboard to the title, so that it is read aloud to those who have the screen read.
    void announce();

private:
    TextLabel* title_;
};

}
