// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "ui/settings/event_setting_editor.h"

#include <QWidget>

namespace chimewell {

class AlertStrip;
class EventHeader;
class Fold;
class SpokenOptions;
class VoiceList;

/// One event in the settings. Follows the settings, wherever they are changed.
class EventRow final : public QWidget {
    Q_OBJECT
public:
    /// `voices` outlives this.
    EventRow(Services& services, CanonicalEvent event, VoiceList& voices, QWidget* parent = nullptr);

private:
    void setOpen(bool isOpen);
    void showSetting();

    const EventSettingEditor editor_;
    EventHeader* header_;
    AlertStrip* strip_;
    SpokenOptions* spoken_;
    Fold* whenSpoken_;
    Fold* options_;
    bool wasEnabled_ = false;
    Subscription storeChange_;
};

}
