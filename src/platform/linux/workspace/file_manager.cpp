// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/file_manager.h"

#include "platform/linux/freedesktop/dbus_call.h"
#include "platform/linux/freedesktop/dbus_refusal.h"
#include "platform/linux/workspace/detached_process.h"
#include "platform/linux/workspace/file_uri.h"
#include "platform/linux/workspace/path_inspector.h"

#include <QDBusMessage>
#include <QStandardPaths>
#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

namespace chimewell {

namespace {

/// A command that opens a URI by the user's choice of programs, without the URI; empty if there is none.
std::vector<std::string> openingCommand()
{
    if (!QStandardPaths::findExecutable(QStringLiteral("gio")).isEmpty()) return {"gio", "open"};
    if (!QStandardPaths::findExecutable(QStringLiteral("xdg-open")).isEmpty()) return {"xdg-open"};
    return {};
}

}

FileManager::FileManager(QDBusConnection bus, std::filesystem::path home, PathInspector& paths)
    : bus_(std::move(bus)),
      home_(std::move(home)),
      paths_(paths)
{
}

bool FileManager::openFolder(const std::filesystem::path& folder, const std::string& activationToken)
{
    if (!bus_.isConnected() && openingCommand().empty()) return false;
    show(QStringLiteral("ShowFolders"), folder, folder, activationToken);
    return true;
}

void FileManager::reveal(const std::filesystem::path& path, const std::string& activationToken)
{
    if (path.is_absolute()) show(QStringLiteral("ShowItems"), path, path.parent_path(), activationToken);
}

void FileManager::show(const QString& method, const std::filesystem::path& shown,
                       const std::filesystem::path& otherwise, const std::string& activationToken)
{
    const QString name = QStringLiteral("org.freedesktop.FileManager1");
    QDBusMessage call =
        QDBusMessage::createMethodCall(name, QStringLiteral("/org/freedesktop/FileManager1"), name, method);
    call.setArguments(
        {QStringList(QString::fromStdString(fileUri(shown))), QString::fromStdString(activationToken)});
    callAsync(bus_, call, &context_, [this, otherwise, activationToken](const QDBusMessage& reply) {
        if (isRefusal(reply)) openByChoice(otherwise, activationToken);
    });
}

void FileManager::openByChoice(const std::filesystem::path& folder, const std::string& activationToken)
{
    // Asked again, as time has passed, or for the first time of a parent: these programs would run a file.
    paths_.findKind(folder, [this, folder, activationToken](FileKind kind) {
        std::vector<std::string> command = openingCommand();
        if (command.empty() || kind != FileKind::folder) return;
        command.push_back(fileUri(folder));
        startDetached(command, home_, activationToken);
    });
}

}
