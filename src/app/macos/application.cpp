// SPDX-License-Identifier: MIT
#include "app/macos/application.h"

#include "platform/macos/system_symbols.h"
#include "platform/posix/temporary_file.h"
#include "presentation/panel_model.h"
#include "settings/application_folder.h"
#include "ui/look/symbol.h"
#include "values/texts.h"

#include <QApplication>
#include <QEvent>
#include <QFileOpenEvent>
#include <QImage>
#include <QRectF>
#include <QUrl>

#include <string>

namespace chimewell {

namespace {

/// The system's own drawing of a symbol.
QImage systemMask(std::string_view name, int pixels)
{
    const auto mask = systemSymbol(name, pixels);
    if (!mask) return {};
    // Qt's rows begin at multiples of four bytes: ours are copied.
    return QImage(mask->alpha.data(), mask->size, mask->size, mask->size, QImage::Format_Alpha8).copy();
}

/// Qt's screens begin at the same corner as ours.
QRect onScreen(const ScreenRectangle& area)
{
    return QRectF(area.x, area.y, area.width, area.height).toAlignedRect();
}

}

Application::Application(const Words& words)
    : words_(words),
      services_({.files = files_,
                 .clock = clock_,
                 .timers = timers_,
                 .random = random_,
                 .locale = locale_,
                 .translator = words,
                 .folders = folders_,
                 .resources = resources_,
                 .sounds = sounds_,
                 .speech = speech_,
                 .notifications = center_,
                 .workspace = workspace_,
                 .loginItem = loginItem_,
                 .activation = activation_},
                applicationFolder(folders_)),
      running_(RunningLock::take(applicationFolder(folders_))),
      interface_({.store = services_.store,
                  .history = services_.history,
                  .notifications = services_.notifications,
                  .actions = services_.actions,
                  .cards = services_.cards,
                  .focus = services_.focus,
                  .voice = services_.voice,
                  .speech = speech_,
                  .workspace = workspace_,
                  .locale = locale_,
                  .clock = clock_,
                  .words = words,
                  .version = CHIMEWELL_VERSION,
                  .addresses = {.website = CHIMEWELL_WEBSITE,
                                .support = CHIMEWELL_SUPPORT_PAGE,
                                .privacyPolicy = CHIMEWELL_PRIVACY_PAGE,
                                .terms = CHIMEWELL_TERMS_PAGE},
                  .quit = [] { QCoreApplication::quit(); }}),
      icon_([this](const ScreenRectangle& icon) { interface_.openPanel(onScreen(icon)); }),
      events_({.open = [this](const auto& url) { services_.urls.handleURLEvent(url); },
               .activate = [this] { openByHand(); }})
{
    setSymbolSource(systemMask);
    qApp->installEventFilter(this);
    connect(qApp, &QCoreApplication::aboutToQuit, this,
            [this] { services_.delegate.applicationWillTerminate(quitReason_); });

    settings_ = services_.store.onChange([this] { showIcon(); });
    showIcon();
    removeAbandonedFiles(services_.store.folder());
    services_.delegate.applicationDidFinishLaunching();
    interface_.start();
}

bool Application::eventFilter(QObject* watched, QEvent* event)
{
    // The system's request can be looked at only while it is handled; Qt leaves its loop later. What is not
    // the session's end is the user's wish, from wherever it comes.
    if (watched == qApp && event->type() == QEvent::Quit && AppleEvents::isSessionEnding())
        quitReason_ = QuitReason::sessionEnd;
    // A URL that Qt's own handler took, should it ever come behind ours.
    if (watched == qApp && event->type() == QEvent::FileOpen) {
        const QUrl url = static_cast<QFileOpenEvent*>(event)->url();
        services_.urls.handleURLEvent(url.toString(QUrl::FullyEncoded).toStdString());
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void Application::showIcon()
{
    const AppSettings& settings = services_.store.settings();
    const std::string label =
        words_.translate({texts::titleAndDetail, {texts::panelName, panelHeader(settings).status}});
    icon_.setSymbol(std::string(menuBarIcon(settings)), label);
    icon_.setToolTip(label);
}

void Application::openByHand()
{
    if (services_.store.settings().hasCompletedOnboarding)
        interface_.openSettings();
    else
        interface_.openWalkthrough();
}

}
