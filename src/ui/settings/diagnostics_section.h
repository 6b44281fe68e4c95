// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ui/windows.h"
#include "ui/words.h"

#include <QWidget>

class QPushButton;

namespace chimewell {

class Note;

/// Lets the user try whether banners come, and says what to do when they do not.
class DiagnosticsSection final : public QWidget {
    Q_OBJECT
public:
    explicit DiagnosticsSection(Services& services, QWidget* parent = nullptr);

private:
    QWidget* makeTests();
    QWidget* makeExplanation();
    void showStatus();

    Services& services_;
    const Words words_;
    Note* reason_ = nullptr;
    QPushButton* open_ = nullptr;
    QWidget* explanation_;
    bool didRunBannerTest_ = false;
    Subscription statusChange_;
};

}
