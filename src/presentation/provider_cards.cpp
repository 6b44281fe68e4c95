// SPDX-License-Identifier: MIT
#include "presentation/provider_cards.h"

namespace chimewell {

ProviderCards::ProviderCards(Collaborators with)
{
    for (HookInstaller* installer : with.installers.all())
        cards_.push_back(std::make_unique<ProviderCard>(ProviderCard::Collaborators{
            .installer = *installer, .store = with.store, .files = with.files, .timers = with.timers}));
}

void ProviderCards::refresh()
{
    for (const auto& card : cards_)
        card->refresh();
}

void ProviderCards::clearMessages()
{
    for (const auto& card : cards_)
        card->clearMessages();
}

}
