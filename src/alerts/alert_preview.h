// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/sound_player.h"
#include "alerts/voice_announcer.h"
#include "values/app_settings.h"

namespace chimewell {

/// Lets the user hear an event as it is set up, whether it is enabled or not.
class AlertPreview {
public:
    AlertPreview(SoundPlayer& sound, VoiceAnnouncer& voice) : sound_(sound), voice_(voice) {}

    void play(const EventSetting& setting);

private:
    SoundPlayer& sound_;
    VoiceAnnouncer& voice_;
};

}
