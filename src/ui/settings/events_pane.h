// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "ui/settings/pane_column.h"
#include "ui/windows.h"
#include "ui/words.h"

namespace chimewell {

/// Which events alert, and how.
class EventsPane final : public PaneColumn {
    Q_OBJECT
public:
    explicit EventsPane(Services& services, QWidget* parent = nullptr);
};

}
