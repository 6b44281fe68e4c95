// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "presentation/panel_model.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"
#include "ui/settings/pane_column.h"

#include <QBasicTimer>
#include <QWidget>

#include <string>
#include <vector>

class QPushButton;

namespace chimewell {

class LinkButton;
class SymbolLabel;
class TextLabel;

/// One alert of the past in the settings.
class RecentRowView final : public QWidget {
    Q_OBJECT
public:
    /// `id` is the entry's.
    RecentRowView(const Words& words, std::string id, QWidget* parent = nullptr);

    const std::string& id() const { return id_; }
    /// Comes after `previous` when the keyboard goes through the window; returns what is to come next.
    QWidget* follow(QWidget* previous);
    void show(const RecentRow& row);

Q_SIGNALS:
    void openSession();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    const Words words_;
    std::string id_;
    SymbolLabel* icon_;
    TextLabel* title_;
    TextLabel* message_;
    TextLabel* time_;
    QPushButton* open_;
};

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
