// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ui/settings/pane_column.h"
#include "ui/windows.h"
#include "ui/words.h"

#include <QBasicTimer>

#include <vector>

namespace chimewell {

class LinkButton;
class RecentRowView;

/// Every alert that is remembered, the newest first.
class RecentPane final : public PaneColumn {
    Q_OBJECT
public:
    explicit RecentPane(Services& services, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeEmpty();
    RecentRowView* makeRow(const EventHistory::Entry& entry);
    void showHistory();
    void moveFocus(int rows);

    Services& services_;
    const Words words_;
    LinkButton* clear_;
    Card* card_;
    QWidget* empty_ = nullptr;
    std::vector<RecentRowView*> rows_;
    QBasicTimer minute_; ///< Time passes: "4 minutes ago" becomes "5 minutes ago".
    Subscription historyChange_;
};

}
