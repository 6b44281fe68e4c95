// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "presentation/settings_model.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"

#include <QWidget>

#include <array>

class QScrollArea;
class QStackedWidget;

namespace chimewell {

class Note;
class PaneColumn;
class Sidebar;

/// Everything that can be set up. Deletes itself when it is closed.
class SettingsWindow final : public QWidget {
    Q_OBJECT
public:
    SettingsWindow(Services& services, const Windows& windows);
    ~SettingsWindow() override;

    using QWidget::show;
    void show(Pane pane);

protected:
    bool event(QEvent* event) override;

private:
    QWidget* makeErrorHolder();
    PaneColumn* makePane(Pane pane);
    void showError();

    Services& services_;
    const Words words_;
    const Windows windows_;
    Sidebar* sidebar_;
    Note* error_;
    QWidget* errorHolder_;
    QStackedWidget* stack_;
    std::array<QScrollArea*, allPanes.size()> panes_ = {}; ///< Null until they are first shown.
    Subscription storeChange_;
};

}
