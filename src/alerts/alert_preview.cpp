// SPDX-License-Identifier: MIT
#include "alerts/alert_preview.h"

namespace chimewell {

void AlertPreview::play(const EventSetting& setting)
{
    sound_.play(setting.soundId);
    if (setting.speak) voice_.speak(setting.phraseToSpeak(), setting.voiceIdentifier);
}

}
