// SPDX-License-Identifier: MIT
#include "ui/walkthrough/step_page.h"

#include "ui/look/metrics.h"

#include <QVBoxLayout>

namespace chimewell {

namespace {

constexpr double sidePadding = 48;
constexpr double above = 44;
constexpr double below = 16;
constexpr double underHeader = 24;

}

StepPage::StepPage(OnboardingStep step, QWidget* content, const Words& words, QWidget* parent)
    : QWidget(parent),
      header_(new StepHeader(heading(step), words))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(sidePadding), scaled(above), scaled(sidePadding), scaled(below));
    layout->setSpacing(0);
    layout->addWidget(header_);
    layout->addSpacing(scaled(underHeader));
    layout->addWidget(content);
    layout->addStretch(1);
}

}
