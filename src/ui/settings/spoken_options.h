// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/event_setting_editor.h"

#include <QWidget>

#include <vector>

namespace chimewell {

class Field;
class Picker;
class VoiceList;

/// What is said at an event, and by whom.
class SpokenOptions final : public QWidget {
    Q_OBJECT
public:
    /// `voices` outlives this.
    SpokenOptions(const EventSettingEditor& editor, VoiceList& voices, QWidget* parent = nullptr);

    void show(const EventSetting& setting);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makePhrase();
    QWidget* makeVoice();
    void showVoices();

    const EventSettingEditor editor_;
    VoiceList& voices_;
    Field* phrase_ = nullptr;
    Picker* voice_ = nullptr;
    std::vector<Voice> choices_; ///< Of the picker, after the default.
};

}
