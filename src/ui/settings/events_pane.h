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

class Picker;
class Stepper;
class SwitchRow;
class TextLabel;

/// Whether, how often and how many times a waiting agent is brought back to mind.
class RemindersSection final : public QWidget {
    Q_OBJECT
public:
    explicit RemindersSection(Services& services, QWidget* parent = nullptr);

private:
    QWidget* makeInterval();
    QWidget* makeMinutes();
    QWidget* makeCount();
    void showSettings();
    void showCustom(bool isCustom);

    Services& services_;
    const Words words_;
    SwitchRow* enabled_;
    Picker* interval_ = nullptr;
    QPushButton* custom_ = nullptr;
    TextLabel* minutesText_ = nullptr;
    Stepper* minutes_ = nullptr;
    QWidget* minutesRow_ = nullptr;
    TextLabel* countText_ = nullptr;
    Stepper* count_ = nullptr;
    bool isCustom_ = false; ///< The interval is edited in minutes and not picked.
    Subscription storeChange_;
};

/// Which events alert, and how.
class EventsPane final : public PaneColumn {
    Q_OBJECT
public:
    explicit EventsPane(Services& services, QWidget* parent = nullptr);
};

}
