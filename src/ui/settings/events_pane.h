// SPDX-License-Identifier: MIT
#pragma once

#include "ui/interface_services.h"
#include "ui/settings/pane_column.h"

namespace chimewell {

/// Which events alert, and how.
class EventsPane final : public PaneColumn {
    Q_OBJECT
public:
    explicit EventsPane(const InterfaceServices& services, QWidget* parent = nullptr);
};

}
