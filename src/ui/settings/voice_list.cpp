// SPDX-License-Identifier: MIT
#include "ui/settings/voice_list.h"

#include <QPointer>

#include <utility>

namespace chimewell {

VoiceList::VoiceList(const InterfaceServices& services, QObject* parent)
    : QObject(parent),
      services_(services)
{
}

void VoiceList::ask()
{
    if (std::exchange(isAsked_, true)) return;
    // The answer may come after the window was closed.
    services_.speech.listVoices([self = QPointer(this)](std::vector<Voice> installed) {
        if (!self) return;
        self->voices_ = self->services_.voice.voices(std::move(installed));
        Q_EMIT self->changed();
    });
}

}
