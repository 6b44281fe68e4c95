// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ui/words.h"

#include <QWidget>

class QPushButton;

namespace chimewell {

class Card;
class TextLabel;

/// Whether banners may be shown, and what can be done about it.
class NotificationsStep final : public QWidget {
    Q_OBJECT
public:
    explicit NotificationsStep(Services& services, QWidget* parent = nullptr);

private:
    QWidget* makeStatusRow();
    QWidget* makeDeniedRow();
    void showStatus();

    Services& services_;
    const Words words_;
    TextLabel* status_ = nullptr;
    QPushButton* allow_ = nullptr;
    QWidget* denied_ = nullptr;
    Subscription subscription_;
};

}
