// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ui/windows.h"
#include "ui/words.h"

#include <QWidget>

namespace chimewell {

class Note;
class SwitchButton;

/// Whether the next session begins with us. Why that could not be changed is said below.
class LaunchAtLoginRow final : public QWidget {
    Q_OBJECT
public:
    explicit LaunchAtLoginRow(Services& services, QWidget* parent = nullptr);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void showSetting();
    void set(bool wanted);

    Services& services_;
    const Words words_;
    SwitchButton* switch_;
    Note* error_;
    Subscription subscription_;
};

}
