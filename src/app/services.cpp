// SPDX-License-Identifier: MIT
#include "app/services.h"

#include "values/event_url.h"

namespace chimewell {

Services::Services(const Ports& ports, const std::filesystem::path& folder)
    : random_(ports.random),
      store(ports.files, folder),
      sound(ports.sounds),
      notifications(ports.notifications, ports.random),
      voice(ports.speech, ports.locale),
      history(ports.clock, ports.random),
      reminders({.store = store, .clock = ports.clock, .timers = ports.timers, .random = ports.random}),
      router({.store = store,
              .history = history,
              .sound = sound,
              .notifications = notifications,
              .voice = voice,
              .reminders = reminders,
              .clock = ports.clock}),
      focus(ports.workspace, ports.files),
      urls(router),
      marker(ports.files, ports.clock, folder),
      delegate({.urls = urls, .notifications = notifications, .marker = marker, .timers = ports.timers})
{
    reminders.onFire = [this](const EventPayload& payload) { router.fireReminder(payload); };
    notifications.onOpenSession = [this](const auto& term, const auto& cwd) {
        focus.focusSession(term, cwd);
    };
}

void Services::playSample()
{
    if (const auto payload = parseEventUrl(sampleEventUrl(random_.uuid()))) router.handle(*payload);
}

void Services::setMuted(bool muted)
{
    store.update([&](AppSettings& settings) { settings.globalMuted = muted; });
}

}
