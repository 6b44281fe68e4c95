// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "base/text.h"
#include "core/services.h"
#include "presentation/onboarding_steps.h"
#include "ui/look/words.h"

#include <QWidget>

#include <string_view>

class QGridLayout;
class QPushButton;

namespace chimewell {

class Card;
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

/// One step: its header, always at the same height, and what is to be done or read.
class StepPage final : public QWidget {
    Q_OBJECT
public:
    StepPage(OnboardingStep step, QWidget* content, const Words& words, QWidget* parent = nullptr);

    void announce() { header_->announce(); }

private:
    StepHeader* header_;
};

/// What the walkthrough is about, and that it may be left at once.
class WelcomeStep final : public QWidget {
    Q_OBJECT
public:
    explicit WelcomeStep(const Words& words, QWidget* parent = nullptr);
};

/// Agent, hook and Chimewell, joined by arrows.
class FlowDiagram final : public QWidget {
    Q_OBJECT
public:
    explicit FlowDiagram(const Words& words, QWidget* parent = nullptr);

private:
    void addNode(QGridLayout& grid, std::string_view symbol, const QString& name);
};

/// How an alert comes about, as a picture.
class HowItWorksStep final : public QWidget {
    Q_OBJECT
public:
    explicit HowItWorksStep(const Words& words, QWidget* parent = nullptr);
};

/// Whether banners may be shown, and what can be done about it.
class NotificationsStep final : public QWidget {
    Q_OBJECT
public:
    explicit NotificationsStep(Services& services, QWidget* parent = nullptr);

private:
    QWidget* makeStatusRow();
    QWidget* makeDeniedRow();
    void showStatus();

    Services& services_;
    const Words words_;
    TextLabel* status_ = nullptr;
    QPushButton* allow_ = nullptr;
    QWidget* denied_ = nullptr;
    Subscription subscription_;
};

}
