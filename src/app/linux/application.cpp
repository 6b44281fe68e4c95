// SPDX-License-Identifier: MIT
#include "app/linux/application.h"

#include "platform/linux/tray/status_notifier_item.h"
#include "platform/linux/tray/tray_panel.h"
#include "platform/posix/temporary_file.h"
#include "ui/tray_icon.h"

#include <QApplication>
#include <QSessionManager>

#include <memory>

namespace chimewell {

namespace {

/// Absent in a Wayland session, even if it has an X server: X clients can't raise Wayland windows.
std::optional<std::string> xDisplay()
{
    if (QGuiApplication::platformName() != QStringLiteral("xcb")) return std::nullopt;
    return qEnvironmentVariable("DISPLAY").toStdString();
}

}

Application::Application(const QDBusConnection& bus, FreedesktopApplication& host,
                         const Translator& translator, const Installation& installation)
    : bus_(bus),
      locale_({.words = translator.language(), .time = IcuUserLocale::timeOfEnvironment()}),
      resources_({installation.programs}),
      center_(bus, timers_, tokens_),
      sounds_(installation.sounds),
      speech_(SsipSpeechSynthesizer::Service::ofSession(), translator.language()),
      workspace_(
          {.folders = folders_, .files = files_, .tokens = tokens_, .bus = bus, .xDisplay = xDisplay()}),
      loginItem_(folders_, files_, {installation.program.string()}),
      services_({.files = files_,
                 .clock = clock_,
                 .timers = timers_,
                 .random = random_,
                 .locale = locale_,
                 .translator = translator,
                 .folders = folders_,
                 .resources = resources_,
                 .sounds = sounds_,
                 .speech = speech_,
                 .notifications = center_,
                 .workspace = workspace_,
                 .loginItem = loginItem_,
                 .activation = activation_}),
      signals_([this] { endWithSession(); }),
      interface_(services_, {.palette = UserInterface::Palette::oursIfPlain,
                             .isComposited = isComposited,
                             .preparePanel = prepareTrayPanel}),
      trayHost_(bus, [this](TrayKind kind) { showIcon(kind); }),
      appearance_(bus, [this](std::optional<bool> isDark) { interface_.setDark(isDark); })
{
    services_.actions.onQuit = [this] { quitByUser(); };
    host.setHandlers({.open = [this](const auto& url) { services_.urls.handleURLEvent(url); },
                      .activate = [this] { interface_.activate(); },
                      .action = [this](const std::string& action) { act(action); }});

    QDBusConnection(bus).connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                                 this, SLOT(endWithSession()));
    // The autostart entry starts us at log-in, so the session manager must not do it as well.
    connect(
        qApp, &QGuiApplication::commitDataRequest, this,
        [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); },
        Qt::DirectConnection);
    connect(qApp, &QCoreApplication::aboutToQuit, this,
            [this] { services_.delegate.applicationWillTerminate(quitReason_); });

    removeAbandonedFiles(services_.store.folder());
    services_.delegate.applicationDidFinishLaunching();
    interface_.start();
}

void Application::showIcon(TrayKind kind)
{
    interface_.setIcon(nullptr); // no host sees two icons
    if (kind == TrayKind::statusNotifier) interface_.setIcon(std::make_unique<StatusNotifierItem>(bus_));
    if (kind == TrayKind::selection) interface_.setIcon(std::make_unique<TrayIcon>());
}

void Application::act(const std::string& action)
{
    if (action == "settings") interface_.openSettings();
    if (action == "walkthrough") interface_.openOnboarding();
    if (action == "sample") services_.actions.playSample();
    if (action == "mute") services_.actions.setMuted(true);
    if (action == "mute-for-an-hour") services_.actions.muteForAnHour();
    if (action == "unmute") services_.actions.setMuted(false);
    if (action == "quit") quitByUser();
}

void Application::quitByUser()
{
    quitReason_ = QuitReason::user;
    QCoreApplication::quit();
}

void Application::endWithSession()
{
    QCoreApplication::quit();
}

}
