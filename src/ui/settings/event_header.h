// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/event_setting_editor.h"

#include <QWidget>

namespace chimewell {

class IconButton;
class SwitchButton;
class TextLabel;

/// What an event is and whether it alerts. A click anywhere but on the switch opens and closes what is below.
class EventHeader final : public QWidget {
    Q_OBJECT
public:
    explicit EventHeader(const EventSettingEditor& editor, QWidget* parent = nullptr);

    void showEnabled(bool isEnabled);
    void showOpen(bool isOpen);

Q_SIGNALS:
    /// By the user.
    void enabledChanged(bool isEnabled);
    void openChanged(bool isOpen);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    IconButton* arrow_;
    TextLabel* enabled_;
    SwitchButton* switch_;
};

}
