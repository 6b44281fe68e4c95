// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/provider_card.h"
#include "ui/words.h"

#include <QWidget>

namespace chimewell {

/// The agents, to be connected or not.
class InstallHooksStep final : public QWidget {
    Q_OBJECT
public:
    InstallHooksStep(ProviderCards& cards, const Words& words, QWidget* parent = nullptr);
};

}
