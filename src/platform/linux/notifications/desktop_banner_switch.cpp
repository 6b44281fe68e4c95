// SPDX-License-Identifier: MIT
#include "platform/linux/notifications/desktop_banner_switch.h"

#include "platform/linux/freedesktop/dbus_call.h"
#include "platform/linux/notifications/current_desktop.h"
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

#include <utility>

namespace chimewell {
namespace {

constexpr char gnomeSchema[] = "org.gnome.desktop.notifications.application";
// The desktop id in lower case, with dashes for everything but letters and digits.
constexpr char gnomePath[] = "/org/gnome/desktop/notifications/application/app-chimewell-chimewell/";

constexpr char xfceChannel[] = "xfce4-notifyd";
constexpr char xfceProperty[] = "/applications/muted_applications"; // desktop ids

bool isOffInPlasma()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QFile file(folder + QStringLiteral("/plasmanotifyrc"));
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
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return false;
    const QVariant value = reply.arguments().constFirst().value<QDBusVariant>().variant();
    // Reading another type than the one that is there would crash.
    if (!value.canConvert<QDBusArgument>() || value.value<QDBusArgument>().currentSignature() != u"av")
        return false;
    const auto names = qdbus_cast<QVariantList>(value);
    return names.contains(QString::fromLatin1(applicationId));
}

}

DesktopBannerSwitch::DesktopBannerSwitch(QDBusConnection bus) : bus_(std::move(bus))
{
    // The first argument is part of both match rules: other settings do not wake us.
    if (currentDesktop() == CurrentDesktop::gnome) {
        for (const char* key : {"enable", "show-banners"})
            bus_.connect(QString(), QStringLiteral("/ca/desrt/dconf/Writer/user"),
                         QStringLiteral("ca.desrt.dconf.Writer"), QStringLiteral("Notify"),
                         {QString::fromLatin1(gnomePath) + QString::fromLatin1(key)}, QString(), this,
                         SIGNAL(changed()));
    } else if (currentDesktop() == CurrentDesktop::xfce) {
        bus_.connect(QString(), QStringLiteral("/org/xfce/Xfconf"), QStringLiteral("org.xfce.Xfconf"),
                     QStringLiteral("PropertyChanged"), {QString::fromLatin1(xfceChannel)}, QString(), this,
                     SIGNAL(changed()));
    }
}

void DesktopBannerSwitch::read(std::function<void(bool)> done)
{
    switch (currentDesktop()) {
    case CurrentDesktop::gnome:
        readGnome(done);
        return;
    case CurrentDesktop::xfce:
        readXfce(std::move(done));
        return;
    case CurrentDesktop::plasma:
        QTimer::singleShot(0, this, [done = std::move(done)] { done(isOffInPlasma()); });
        return;
    case CurrentDesktop::other:
        QTimer::singleShot(0, this, [done = std::move(done)] { done(false); });
        return;
    }
}

void DesktopBannerSwitch::readGnome(const std::function<void(bool)>& done)
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
    process->start(QStringLiteral("gsettings"),
                   {QStringLiteral("list-recursively"),
                    QString::fromLatin1(gnomeSchema) + u':' + QString::fromLatin1(gnomePath)});
}

void DesktopBannerSwitch::readXfce(std::function<void(bool)> done)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.xfce.Xfconf"), QStringLiteral("/org/xfce/Xfconf"),
                                       QStringLiteral("org.xfce.Xfconf"), QStringLiteral("GetProperty"));
    call << QString::fromLatin1(xfceChannel) << QString::fromLatin1(xfceProperty);
    callAsync(bus_, call, this,
              [done = std::move(done)](const QDBusMessage& reply) { done(isOffInXfce(reply)); });
}

}
