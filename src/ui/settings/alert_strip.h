// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/event_setting_editor.h"

#include <QWidget>

class QCheckBox;
class QPushButton;

namespace chimewell {

class SoundPicker;

/// How an event alerts: its sound, with a button to hear it, and whether there is a banner and a voice.
class AlertStrip final : public QWidget {
    Q_OBJECT
public:
    explicit AlertStrip(const EventSettingEditor& editor, QWidget* parent = nullptr);

    void show(const EventSetting& setting);

private:
    QWidget* makeSound();
    QWidget* makeOptions();

    const EventSettingEditor editor_;
    SoundPicker* sound_ = nullptr;
    QPushButton* preview_;
    QCheckBox* banner_ = nullptr;
    QCheckBox* speak_ = nullptr;
};

}
