// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"

#include <QTimer>
#include <QWidget>

#include <vector>

class QPushButton;

namespace chimewell {

class Card;
class IconButton;
class LinkButton;
class Note;
class QuickRow;
class RecentPanelRow;
class StatusDot;
class TextLabel;

/// What the panel shows, in a pop-up or in a window. Follows the settings and the history.
class PanelContent final : public QWidget {
    Q_OBJECT
public:
    PanelContent(Services& services, const Windows& windows);

Q_SIGNALS:
    /// The user chose something that opens another window.
    void done();
    void heightChanged();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* makeHeader();
    QWidget* makeRecent();
    QWidget* makeQuickControls();
    QWidget* makeActions();
    void showSettings();
    void showMute();
    void showHistory();

    Services& services_;
    const Words words_;
    const Windows windows_;

    StatusDot* dot_ = nullptr;
    TextLabel* status_ = nullptr;
    QPushButton* finishSetup_ = nullptr;
    Note* warning_ = nullptr;
    Card* warningCard_ = nullptr;
    LinkButton* clear_ = nullptr;
    std::vector<RecentPanelRow*> rows_;
    TextLabel* empty_ = nullptr;
    TextLabel* more_ = nullptr;
    QuickRow* mute_ = nullptr;
    struct Quick {
        CanonicalEvent event;
        QuickRow* row;
        IconButton* preview;
    };
    std::vector<Quick> quick_;

    QTimer clock_; ///< Refreshes the relative times while the panel is visible.
    Subscription storeChange_;
    Subscription muteChange_;
    Subscription historyChange_;
};

}
