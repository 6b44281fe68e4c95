// SPDX-License-Identifier: MIT
#include "ui/settings/voice_list.h"

#include <QPointer>

#include <utility>

namespace chimewell {

VoiceList::VoiceList(Services& services, QObject* parent) : QObject(parent), services_(services) {}

void VoiceList::ask()
{
    if (std::exchange(isAsked_, true)) return;
    // The answer may come after the window was closed.
    services_.voice.listVoices([self = QPointer(this)](std::vector<Voice> voices) {
        if (!self) return;
        self->voices_ = std::move(voices);
        Q_EMIT self->changed();
    });
}

}
