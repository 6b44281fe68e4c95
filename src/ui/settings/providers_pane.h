// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"
#include "ui/settings/pane_column.h"

#include <QWidget>

class QHBoxLayout;
class QPushButton;

namespace chimewell {

class Note;
class StatusPillLabel;
class TextLabel;

/// One agent: what its file says, what is to be known, and what can be done about it.
class ProviderCardView final : public QWidget {
    Q_OBJECT
public:
    /// `card` outlives this.
    ProviderCardView(Services& services, ProviderCard& card, QWidget* parent = nullptr);

Q_SIGNALS:
    /// It is about to become higher or lower because the user did something here.
    void used();

private:
    QHBoxLayout* makeHeader();
    QWidget* makeNotes();
    QWidget* makeButtons();
    QPushButton* makeButton(Text text, Text name, PendingAction action);
    void showCard();
    void showNotes();
    void showButtons();
    void ask(PendingAction action);
    void reveal();
    QString named(Text text) const;

    Services& services_;
    const Words words_;
    ProviderCard& card_;
    StatusPillLabel* pill_ = nullptr;
    Note* agentNote_ = nullptr;
    Note* notice_ = nullptr;
    Note* info_ = nullptr;
    Note* error_ = nullptr;
    QPushButton* update_ = nullptr;
    QPushButton* install_ = nullptr;
    QPushButton* uninstall_ = nullptr;
    QPushButton* restore_ = nullptr;
    QPushButton* reveal_ = nullptr;
    QPushButton* clicked_ = nullptr; ///< While the buttons are held.
    Subscription cardChange_;
};

/// The agents that can tell us something. The card that was used last stays where it is on the screen while
/// others become higher or lower.
class ProvidersPane final : public PaneColumn {
    Q_OBJECT
public:
    explicit ProvidersPane(Services& services, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void scrollBy(int pixels);

    QWidget* used_ = nullptr;
};

}
