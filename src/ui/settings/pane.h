// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "ui/controls/windows.h"

#include <QString>
#include <QWidget>

class QVBoxLayout;

namespace chimewell {

class Card;

/// One part of the settings: a column of cards with headings, centred in a window that is wider.
class PaneColumn : public QWidget {
    Q_OBJECT
protected:
    PaneColumn();

    /// A line above the first card; `trailing` is a control at its end.
    void addIntro(const QString& text, QWidget* trailing = nullptr);
    void addHeading(const QString& text);
    /// Cards have room between them; one after a heading belongs to it.
    Card* addCard();
    void addSection(QWidget* section);
    /// Leaves the rest of the column empty.
    void finish();
    QVBoxLayout* column() const { return column_; }

    void resizeEvent(QResizeEvent* event) override;

private:
    QVBoxLayout* column_;
    bool isAfterCard_ = false;
};

/// The parts of the settings. The services and windows outlive them.
PaneColumn* makeEventsPane(Services& services);
PaneColumn* makeProvidersPane(Services& services);
PaneColumn* makeRecentPane(Services& services);
PaneColumn* makeGeneralPane(Services& services, const Windows& windows);

}
