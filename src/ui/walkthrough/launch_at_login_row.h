// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "ui/interface_services.h"

#include <QWidget>

namespace chimewell {

class Note;
class SwitchButton;

/// Whether the next session begins with us. Why that could not be changed is said below.
class LaunchAtLoginRow final : public QWidget {
    Q_OBJECT
public:
    explicit LaunchAtLoginRow(const InterfaceServices& services, QWidget* parent = nullptr);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void showSetting();
    void set(bool wanted);

    const InterfaceServices& services_;
    SwitchButton* switch_;
    Note* error_;
    Subscription subscription_;
};

}
