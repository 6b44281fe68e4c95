// SPDX-License-Identifier: MIT
#pragma once

#include "support/fake_system.h"
#include "ui/interface_services.h"

namespace chimewell::test {

/// What windows need, on a system of fakes.
struct InterfaceOnFakes {
    FakeSystem system;
    Services services{system.ports(), "/support/Chimewell"};
    int quits = 0;

    InterfaceServices interface{.store = services.store,
                                .history = services.history,
                                .notifications = services.notifications,
                                .actions = services.actions,
                                .cards = services.cards,
                                .focus = services.focus,
                                .voice = services.voice,
                                .speech = system.speech,
                                .workspace = system.workspace,
                                .locale = system.locale,
                                .clock = system.time,
                                .words = Words(Wording::linuxDesktop),
                                .version = "1.0.0",
                                .addresses = {},
                                .quit = [this] { ++quits; }};
};

}
