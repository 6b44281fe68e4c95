// SPDX-License-Identifier: MIT
#include "ui/walkthrough/welcome_step.h"

#include "ui/controls/balanced_label.h"
#include "values/texts.h"

#include <QVBoxLayout>

namespace chimewell {

namespace {

constexpr double widestText = 480;

}

WelcomeStep::WelcomeStep(const Words& words, QWidget* parent) : QWidget(parent)
{
    auto* body = new BalancedLabel(TextStyle::body, Ink::text, scaled(widestText));
    body->setMarkedText(words(texts::welcomeBody));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(body);
}

}
