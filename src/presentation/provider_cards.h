// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/hook_installers.h"
#include "presentation/provider_card.h"

#include <memory>
#include <vector>

namespace chimewell {

/// The cards of all agents, in the order in which they are shown. Every window shows these same ones.
class ProviderCards {
public:
    struct Collaborators {
        HookInstallers& installers;
        SettingsStore& store;
        Files& files;
        Timers& timers;
    };
    explicit ProviderCards(Collaborators with);

    const std::vector<std::unique_ptr<ProviderCard>>& all() const { return cards_; }
    void refresh();
    void clearMessages();

private:
    std::vector<std::unique_ptr<ProviderCard>> cards_;
};

}
