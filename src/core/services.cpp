// SPDX-License-Identifier: MIT
#include "core/services.h"

#include "values/shared_names.h"

#include <filesystem>

namespace chimewell {

namespace {

/// The folder that holds the settings and the dormant marker.
std::filesystem::path applicationFolder(const UserFolders& folders)
{
    const auto support = folders.applicationSupport();
    return (support ? *support : folders.home() / macApplicationSupport) / applicationFolderName;
}

}

Services::Services(const Ports& with)
    : ports(with),
      store(ports.files, applicationFolder(ports.folders)),
      muting(store, ports.clock, ports.timers),
      sound(ports.sounds),
      voice(ports.speech, ports.translator),
      audio(sound, voice),
      notifications(ports.notifications, ports.random, ports.translator),
      history(ports.clock, ports.random),
      reminders({.muting = muting, .clock = ports.clock, .timers = ports.timers, .random = ports.random}),
      router({.store = store,
              .muting = muting,
              .history = history,
              .audio = audio,
              .notifications = notifications,
              .reminders = reminders,
              .clock = ports.clock}),
      focus(ports.workspace),
      installers({.files = ports.files,
                  .clock = ports.clock,
                  .folders = ports.folders,
                  .resources = ports.resources}),
      cards({.installers = installers, .store = store, .files = ports.files, .timers = ports.timers}),
      actions({.store = store,
               .muting = muting,
               .history = history,
               .router = router,
               .notifications = notifications,
               .sound = sound,
               .audio = audio,
               .focus = focus,
               .loginItem = ports.loginItem,
               .random = ports.random,
               .activation = ports.activation,
               .resources = ports.resources}),
      reopens(ports.clock, ports.timers),
      urls(router, reopens),
      marker(ports.files, ports.clock, store.folder()),
      delegate({.activation = ports.activation,
                .urls = urls,
                .notifications = notifications,
                .marker = marker,
                .timers = ports.timers})
{
    reminders.onFire = [this](const EventPayload& payload) { router.fireReminder(payload); };
    notifications.onOpenSession = [this](const auto& term, const auto& cwd) {
        reopens.explain(ReopenRequests::Cause::banner);
        focus.focusSession(term, cwd);
    };
}

}
