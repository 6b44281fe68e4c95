// SPDX-License-Identifier: MIT
#include "ui/walkthrough/install_hooks_step.h"

#include "ui/controls/card.h"
#include "ui/walkthrough/provider_install_row.h"

#include <QVBoxLayout>

namespace chimewell {

InstallHooksStep::InstallHooksStep(ProviderCards& cards, const Words& words, QWidget* parent)
    : QWidget(parent)
{
    auto* agents = new Card;
    for (const auto& card : cards.all())
        agents->addRow(new ProviderInstallRow(*card, words), 16);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(agents);
}

}
