// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "presentation/settings_model.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"

#include <QWidget>

#include <array>

class QStackedWidget;

namespace chimewell {

class Note;
class Sidebar;

/// Everything that can be set up. Deleted when it is closed.
class SettingsWindow final : public QWidget {
    Q_OBJECT
public:
    SettingsWindow(Services& services, const Windows& windows, QWidget* parent = nullptr);

    ~SettingsWindow() override;

    using QWidget::show;
    void show(Pane pane);

protected:
    bool event(QEvent* event) override;

private:
    QWidget* makeErrorNote();
    QWidget* makePane(Pane pane);
    void showError();

    Services& services_;
    const Words words_;
    const Windows windows_;
    Sidebar* sidebar_;
    Note* errorNote_;
    QWidget* error_;
    QStackedWidget* stack_;
    std::array<QWidget*, allPanes.size()> panes_ = {}; ///< Made when they are first shown.
    Subscription storeChange_;
};

}
