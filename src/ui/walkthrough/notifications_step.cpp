// SPDX-License-Identifier: MIT
#include "ui/walkthrough/notifications_step.h"

#include "presentation/settings_model.h"
#include "ui/controls/card.h"
#include "ui/controls/note.h"
#include "ui/look/metrics.h"
#include "values/texts.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace chimewell {

namespace {

QHBoxLayout* rowLayout(QWidget* row)
{
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(scaled(15), scaled(12), scaled(15), scaled(12));
    return layout;
}

}

NotificationsStep::NotificationsStep(Services& services, QWidget* parent)
    : QWidget(parent),
      services_(services),
      words_(services.ports.translator)
{
    auto* card = new Card;
    card->addRow(makeStatusRow());
    card->addRow(denied_ = makeDeniedRow(), 16);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);

    subscription_ = services_.notifications.onChange([this] { showStatus(); });
    showStatus();
}

QWidget* NotificationsStep::makeStatusRow()
{
    auto* row = new QWidget;
    auto* name = new TextLabel(TextStyle::body);
    name->setText(words_(texts::status));
    status_ = new TextLabel(TextStyle::body, Ink::secondary);
    status_->setWrapping(true);
    allow_ = new QPushButton(words_(texts::allowNotifications));
    connect(allow_, &QPushButton::clicked, this, [this] { services_.actions.allowNotifications(); });

    auto* layout = rowLayout(row);
    layout->setSpacing(scaled(4));
    layout->addWidget(name);
    layout->addWidget(status_, 1);
    layout->addWidget(allow_);
    row->setMinimumHeight(scaled(metrics::controlHeight) + 2 * scaled(12));
    return row;
}

QWidget* NotificationsStep::makeDeniedRow()
{
    auto* row = new QWidget;
    auto* note = new Note(TextStyle::subheadline, Ink::secondary);
    note->setNote("info.circle", Tone::secondary, words_(texts::deniedNote));
    auto* open = new QPushButton(words_(texts::openSystemSettings));
    connect(open, &QPushButton::clicked, this, [this] { services_.actions.openNotificationSettings(); });

    auto* layout = rowLayout(row);
    layout->setSpacing(scaled(16));
    layout->addWidget(note, 1);
    layout->addWidget(open);
    return row;
}

void NotificationsStep::showStatus()
{
    const AuthStatus status = services_.notifications.status();
    status_->setText(words_(permissionText(status)));
    allow_->setEnabled(status == AuthStatus::notDetermined); // otherwise no question appears
    denied_->setVisible(status == AuthStatus::denied);
}

}
