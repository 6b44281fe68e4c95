// SPDX-License-Identifier: MIT
#include "app/macos/application.h"

#include "platform/macos/status_item.h"
#include "platform/macos/system_symbols.h"
#include "platform/posix/temporary_file.h"
#include "ui/look/symbol.h"

#include <QApplication>
#include <QEvent>
#include <QFileOpenEvent>
#include <QImage>
#include <QUrl>

#include <memory>

namespace chimewell {

namespace {

/// A symbol as macOS draws it.
QImage systemMask(std::string_view name, int pixels)
{
    const auto mask = systemSymbol(name, pixels);
    if (!mask) return {};
    // Qt aligns rows to four bytes, so a copy with Qt's own rows is made.
    return QImage(mask->alpha.data(), mask->size, mask->size, mask->size, QImage::Format_Alpha8).copy();
}

}

Application::Application(const Translator& translator)
    : services_({.files = files_,
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
      running_(RunningLock::take(services_.store.folder())),
      interface_(services_),
      events_({.open = [this](const auto& url) { services_.urls.handleURLEvent(url); },
               .activate = [this] { interface_.activate(); }})
{
    services_.actions.onQuit = [] { QCoreApplication::quit(); };
    setSymbolSource(systemMask);
    qApp->installEventFilter(this);
    connect(qApp, &QCoreApplication::aboutToQuit, this,
            [this] { services_.delegate.applicationWillTerminate(quitReason_); });

    interface_.setIcon(std::make_unique<StatusItem>());
    removeAbandonedFiles(services_.store.folder());
    services_.delegate.applicationDidFinishLaunching();
    interface_.start();
}

bool Application::eventFilter(QObject* watched, QEvent* event)
{
    // The Apple event behind the request is available only while it is handled; Qt exits later. Every quit
    // that doesn't end the session counts as the user's.
    if (watched == qApp && event->type() == QEvent::Quit && AppleEvents::isSessionEnding())
        quitReason_ = QuitReason::sessionEnd;
    // In case Qt's own handler for URLs replaces ours.
    if (watched == qApp && event->type() == QEvent::FileOpen) {
        const QUrl url = static_cast<QFileOpenEvent*>(event)->url();
        services_.urls.handleURLEvent(url.toString(QUrl::FullyEncoded).toStdString());
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}
