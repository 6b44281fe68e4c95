// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "support/fake_system.h"
#include "ui/look/words.h"

namespace chimewell::test {

/// What windows need, on a system of fakes.
struct WindowsOnFakes {
    WindowsOnFakes() : WindowsOnFakes(nullptr) {}
    /// `locale` instead of the fake one.
    explicit WindowsOnFakes(const UserLocale* locale)
        : services(system.ports(translator, locale ? *locale : system.locale))
    {
        services.actions.onQuit = [this] { ++quits; };
    }

    FakeSystem system;
    QtTranslator translator{Wording::linuxDesktop, "en"};
    Words words{translator};
    Services services;
    int quits = 0;
};

}
