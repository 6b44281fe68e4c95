// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "ui/interface_services.h"
#include "ui/settings/pane_column.h"

namespace chimewell {

class SwitchRow;

/// What concerns the whole application.
class GeneralPane final : public PaneColumn {
    Q_OBJECT
public:
    GeneralPane(const InterfaceServices& services, const Windows& windows, QWidget* parent = nullptr);

private:
    void addNotifications();
    void addSetup(const Windows& windows);
    void addSupport();
    void addAbout();
    QWidget* makeLinks();
    void showSettings();
    void showPermission();

    const InterfaceServices& services_;
    SwitchRow* mute_ = nullptr;
    SwitchRow* launch_ = nullptr;
    TextLabel* permission_ = nullptr;
    Subscription storeChange_;
    Subscription statusChange_;
};

}
