// SPDX-License-Identifier: MIT
#include "platform/linux/notifications/desktop_notification_settings.h"

#include "platform/linux/freedesktop/dbus_call.h"
#include "values/shared_names.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariantList>
#include <QtGlobal>

#include <utility>

namespace chimewell {

using namespace Qt::StringLiterals;

namespace {

enum class Desktop { gnome, plasma, xfce, other };

Desktop currentDesktop()
{
    for (const QString& name : qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':')) {
        if (name == u"GNOME") return Desktop::gnome;
        if (name == u"KDE") return Desktop::plasma;
        if (name == u"XFCE") return Desktop::xfce;
    }
    return Desktop::other;
}

QString gnomePath()
{
    // The desktop id in lower case, with dashes for everything but letters and digits.
    return u"/org/gnome/desktop/notifications/application/app-chimewell-chimewell/"_s;
}

QString xfconf()
{
    return u"org.xfce.Xfconf"_s;
}

QString xfceChannel()
{
    return u"xfce4-notifyd"_s;
}

bool isOffInPlasma()
{
    QFile file(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
               u"/plasmanotifyrc"_s);
    if (!file.open(QIODevice::ReadOnly)) return false;
    bool inOurGroup = false;
    bool off = false;
    for (const QByteArray& rawLine : file.read(1 << 20).split('\n')) {
        const QByteArray line = rawLine.trimmed();
        if (line.startsWith('[')) inOurGroup = line == QByteArray("[Applications][") + applicationId + ']';
        if (inOurGroup && line.startsWith("ShowPopups=")) off = line.endsWith("=false");
    }
    return off;
}

bool isOffInGnome(const QByteArray& settings)
{
    for (const QByteArray& line : settings.split('\n'))
        if (line.endsWith(" enable false") || line.endsWith(" show-banners false")) return true;
    return false;
}

bool isOffInXfce(const QDBusMessage& reply)
{
    const QVariant value = firstArgument(reply).value<QDBusVariant>().variant();
    // Reading another type than the one that is there would crash.
    if (!value.canConvert<QDBusArgument>() || value.value<QDBusArgument>().currentSignature() != u"av")
        return false;
    return qdbus_cast<QVariantList>(value).contains(QString::fromLatin1(applicationId));
}

QStringList settingsCommand()
{
    switch (currentDesktop()) {
    case Desktop::gnome:
        return {u"gnome-control-center"_s, u"notifications"_s};
    case Desktop::plasma:
        return {u"systemsettings"_s, u"kcm_notifications"_s};
    case Desktop::xfce:
        return {u"xfce4-notifyd-config"_s};
    case Desktop::other:
        break;
    }
    return {QString()};
}

}

DesktopNotificationSettings::DesktopNotificationSettings(QDBusConnection bus) : bus_(std::move(bus))
{
    // The first argument is part of both match rules: other settings do not wake us.
    if (currentDesktop() == Desktop::gnome) {
        for (const char* key : {"enable", "show-banners"})
            bus_.connect({}, u"/ca/desrt/dconf/Writer/user"_s, u"ca.desrt.dconf.Writer"_s, u"Notify"_s,
                         {gnomePath() + QLatin1StringView(key)}, {}, this, SIGNAL(changed()));
    } else if (currentDesktop() == Desktop::xfce) {
        bus_.connect({}, u"/org/xfce/Xfconf"_s, xfconf(), u"PropertyChanged"_s, {xfceChannel()}, {}, this,
                     SIGNAL(changed()));
    }
}

void DesktopNotificationSettings::readOff(std::function<void(bool)> done)
{
    if (currentDesktop() == Desktop::gnome) {
        readGnome(done);
    } else if (currentDesktop() == Desktop::xfce) {
        auto call =
            QDBusMessage::createMethodCall(xfconf(), u"/org/xfce/Xfconf"_s, xfconf(), u"GetProperty"_s);
        call << xfceChannel() << u"/applications/muted_applications"_s; // a list of desktop ids
        callAsync(bus_, call, this,
                  [done = std::move(done)](const QDBusMessage& reply) { done(isOffInXfce(reply)); });
    } else {
        const bool isPlasma = currentDesktop() == Desktop::plasma;
        QTimer::singleShot(0, this,
                           [done = std::move(done), isPlasma] { done(isPlasma && isOffInPlasma()); });
    }
}

void DesktopNotificationSettings::readGnome(const std::function<void(bool)>& done)
{
    // A process, because GNOME's settings library reads files and may ask the bus in the caller's thread.
    auto* process = new QProcess(this);
    connect(process, &QProcess::errorOccurred, this, [process, done](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart) return; // any other error ends in finished()
        process->deleteLater();
        done(false);
    });
    connect(process, &QProcess::finished, this, [process, done] {
        process->deleteLater();
        done(isOffInGnome(process->readAllStandardOutput()));
    });
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(u"gsettings"_s,
                   {u"list-recursively"_s, u"org.gnome.desktop.notifications.application:"_s + gnomePath()});
}

void DesktopNotificationSettings::open()
{
    QStringList command = settingsCommand();
    const QString program = QStandardPaths::findExecutable(command.takeFirst());
    if (!program.isEmpty()) QProcess::startDetached(program, command);
}

}
