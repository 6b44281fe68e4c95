// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"
#include "ui/settings/pane_column.h"

#include <QWidget>

class QPushButton;

namespace chimewell {

class Note;
class SwitchRow;

/// Lets the user try whether banners come, and says what to do when they do not.
class DiagnosticsSection final : public QWidget {
    Q_OBJECT
public:
    explicit DiagnosticsSection(Services& services, QWidget* parent = nullptr);

private:
    QWidget* makeTests();
    QWidget* makeExplanation();
    void showStatus();

    Services& services_;
    const Words words_;
    Note* reason_ = nullptr;
    QPushButton* open_ = nullptr;
    QWidget* explanation_;
    bool didRunBannerTest_ = false;
    Subscription statusChange_;
};

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
