// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ui/settings/pane_column.h"
#include "ui/windows.h"
#include "ui/words.h"

namespace chimewell {

class SwitchRow;

/// What concerns the whole application.
class GeneralPane final : public PaneColumn {
    Q_OBJECT
public:
    GeneralPane(Services& services, const Windows& windows, QWidget* parent = nullptr);

private:
    void addNotifications();
    void addSetup(const Windows& windows);
    void addSupport();
    void addAbout();
    QWidget* makeLinks();
    void showSettings();
    void showPermission();

    Services& services_;
    const Words words_;
    SwitchRow* mute_ = nullptr;
    SwitchRow* launch_ = nullptr;
    TextLabel* permission_ = nullptr;
    Subscription storeChange_;
    Subscription statusChange_;
};

}
