// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/linux_workspace.h"

#include "base/percent.h"
#include "platform/linux/freedesktop/activation.h"
#include "platform/linux/freedesktop/dbus_call.h"
#include "platform/linux/freedesktop/desktop_entry.h"
#include "platform/linux/workspace/child_process.h"
#include "platform/linux/workspace/x11_windows.h"
#include "platform/posix/xdg_user_folders.h"
#include "ports/files.h"
#include "values/shared_names.h"

#include <QDBusMessage>
#include <QStandardPaths>
#include <QStringList>
#include <QVariantMap>

#include <utility>
#include <vector>

namespace chimewell {

using namespace Qt::StringLiterals;

namespace {

/// The object path of an application's id (freedesktop.org, Desktop Entry 1.5, "D-Bus Activation").
QString objectPath(QString id)
{
    return u'/' + id.replace(u'.', u'/').replace(u'-', u'_');
}

QVariantMap platformData(const std::string& activationToken)
{
    if (activationToken.empty()) return {};
    const QString token = QString::fromStdString(activationToken);
    return {{u"activation-token"_s, token}, {u"desktop-startup-id"_s, token}};
}

/// The file URI (RFC 8089) of an absolute path, which may be any bytes.
std::string fileUri(const std::filesystem::path& path)
{
    std::string uri = "file://";
    appendPercentEncoded(uri, path.native(), "/");
    return uri;
}

/// A command that opens a URI with the program of the user's choice, without the URI. Empty if there is none.
std::vector<std::string> openingCommand()
{
    if (!QStandardPaths::findExecutable(u"gio"_s).isEmpty()) return {"gio", "open"};
    if (!QStandardPaths::findExecutable(u"xdg-open"_s).isEmpty()) return {"xdg-open"};
    return {};
}

}

LinuxWorkspace::LinuxWorkspace(Desktop desktop) : desktop_(std::move(desktop)) {}

bool LinuxWorkspace::isInstalled(const TerminalApplication& application) const
{
    return findDesktopEntry(application.desktopId, desktop_.folders, desktop_.files).has_value();
}

void LinuxWorkspace::openActivating(const TerminalApplication& application)
{
    const std::string token = desktop_.tokens.take(); // spent with this click, used or not
    if (activateRunning(application)) return;
    const auto entry = findDesktopEntry(application.desktopId, desktop_.folders, desktop_.files);
    if (entry) launch(*entry, token);
}

bool LinuxWorkspace::activateRunning(const TerminalApplication& application)
{
    return desktop_.xDisplay && activateNewestWindow(*desktop_.xDisplay, application.windowClasses);
}

void LinuxWorkspace::launch(const InstalledEntry& application, const std::string& activationToken)
{
    if (!application.entry.flag("DBusActivatable")) return runCommand(application, activationToken);
    const QString id = QString::fromStdString(application.id);
    auto activate = QDBusMessage::createMethodCall(id, objectPath(id),
                                                   QString::fromLatin1(applicationInterface), u"Activate"_s);
    activate << platformData(activationToken);
    callAsync(desktop_.bus, activate, &context_,
              [this, application, activationToken](const QDBusMessage& reply) {
                  if (isRefusal(reply)) runCommand(application, activationToken);
              });
}

void LinuxWorkspace::runCommand(const InstalledEntry& application, const std::string& activationToken) const
{
    const auto command = application.entry.commandLine(application.file);
    if (!command) return;
    const std::filesystem::path folder = application.entry.text("Path");
    startDetached(*command, folder.empty() ? desktop_.folders.home() : folder, activationToken);
}

void LinuxWorkspace::findKind(const std::filesystem::path& path, std::function<void(FileKind)> done)
{
    findKindInChild(path, &context_, std::move(done));
}

bool LinuxWorkspace::openFolder(const std::filesystem::path& folder)
{
    if (!desktop_.bus.isConnected() && openingCommand().empty()) return false;
    show(u"ShowFolders"_s, folder, folder);
    return true;
}

void LinuxWorkspace::reveal(const std::filesystem::path& path)
{
    if (path.is_absolute()) show(u"ShowItems"_s, path, path.parent_path());
}

void LinuxWorkspace::show(const QString& method, const std::filesystem::path& path,
                          const std::filesystem::path& folder)
{
    const std::string token = desktop_.tokens.take();
    const QString name = u"org.freedesktop.FileManager1"_s;
    auto call = QDBusMessage::createMethodCall(name, u"/org/freedesktop/FileManager1"_s, name, method);
    call << QStringList(QString::fromStdString(fileUri(path))) << QString::fromStdString(token);
    callAsync(desktop_.bus, call, &context_, [this, folder, token](const QDBusMessage& reply) {
        if (!isRefusal(reply)) return;
        // The kind is asked again, or for the first time of a parent: these programs would run a file.
        findKind(folder, [this, folder, token](FileKind kind) {
            std::vector<std::string> command = openingCommand();
            if (command.empty() || kind != FileKind::folder) return;
            command.push_back(fileUri(folder));
            startDetached(command, desktop_.folders.home(), token);
        });
    });
}

}
