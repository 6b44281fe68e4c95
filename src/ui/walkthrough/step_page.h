// SPDX-License-Identifier: MIT
#pragma once

#include "ui/walkthrough/step_header.h"

#include <QWidget>

namespace chimewell {

/// One step: its header, always at the same height, and what is to be done or read.
class StepPage final : public QWidget {
    Q_OBJECT
public:
    StepPage(OnboardingStep step, QWidget* content, const Words& words, QWidget* parent = nullptr);

    void announce() { header_->announce(); }

private:
    StepHeader* header_;
};

}
