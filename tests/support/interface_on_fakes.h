// SPDX-License-Identifier: MIT
#pragma once

#include "support/fake_system.h"
#include "ui/interface_services.h"

namespace chimewell::test {

/// What windows need, on a system of fakes.
struct InterfaceOnFakes {
    FakeSystem system;
    Words words{Wording::linuxDesktop, "en"};
    Services services{system.ports(words), "/support/Chimewell"};
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
                                .words = words,
                                .version = "1.0.0",
                                .addresses = {},
                                .quit = [this] { ++quits; }};
};

}
