// SPDX-License-Identifier: MIT
#include "app/services.h"

namespace chimewell {

Services::Services(const Ports& ports, const std::filesystem::path& folder)
    : store(ports.files, folder),
      sound(ports.sounds),
      notifications(ports.notifications, ports.random, ports.translator),
      voice(ports.speech, ports.translator),
      history(ports.clock, ports.random),
      reminders({.store = store, .clock = ports.clock, .timers = ports.timers, .random = ports.random}),
      router({.store = store,
              .history = history,
              .sound = sound,
              .notifications = notifications,
              .voice = voice,
              .reminders = reminders,
              .clock = ports.clock}),
      focus(ports.workspace),
      installers({.files = ports.files,
                  .clock = ports.clock,
                  .folders = ports.folders,
                  .resources = ports.resources}),
      preview(sound, voice),
      actions({.store = store,
               .router = router,
               .notifications = notifications,
               .sound = sound,
               .preview = preview,
               .loginItem = ports.loginItem,
               .random = ports.random,
               .activation = ports.activation}),
      cards({.installers = installers, .store = store, .files = ports.files, .timers = ports.timers}),
      urls(router),
      marker(ports.files, ports.clock, folder),
      delegate({.activation = ports.activation,
                .urls = urls,
                .notifications = notifications,
                .marker = marker,
                .timers = ports.timers})
{
    reminders.onFire = [this](const EventPayload& payload) { router.fireReminder(payload); };
    notifications.onOpenSession = [this](const auto& term, const auto& cwd) {
        focus.focusSession(term, cwd);
    };
}

}
