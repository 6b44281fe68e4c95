// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "support/fake_system.h"
#include "ui/look/words.h"

namespace chimewell::test {

/// What windows need, on a system of fakes.
struct WindowsOnFakes {
    FakeSystem system;
    QtTranslator translator{Wording::linuxDesktop, "en"};
    Words words{translator};
    Services services{system.ports(translator)};
};

}
