// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "presentation/provider_card.h"
#include "ui/look/words.h"

#include <QWidget>

class QPushButton;

namespace chimewell {

class Note;

/// One agent, and the button that connects it. What came of it is said below.
class ProviderInstallRow final : public QWidget {
    Q_OBJECT
public:
    ProviderInstallRow(ProviderCard& card, const Words& words, QWidget* parent = nullptr);

private:
    void showCard();
    void ask();

    ProviderCard& card_;
    Words words_;
    QPushButton* install_;
    Note* info_;
    Note* error_;
    bool isClicked_ = false; ///< While the button is held.
    Subscription subscription_;
};

/// The agents, to be connected or not.
class InstallHooksStep final : public QWidget {
    Q_OBJECT
public:
    InstallHooksStep(ProviderCards& cards, const Words& words, QWidget* parent = nullptr);
};

}
