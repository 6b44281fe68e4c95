// SPDX-License-Identifier: MIT
#include "platform/linux/session/autostart_login_item.h"

#include "platform/linux/freedesktop/desktop_entry.h"
#include "platform/posix/xdg_user_folders.h"
#include "ports/files.h"
#include "values/shared_names.h"

#include <QStandardPaths>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace chimewell {
namespace {

std::filesystem::path entryFile(const std::filesystem::path& configFolder)
{
    return configFolder / "autostart" / (std::string(applicationId) + ".desktop");
}

bool isForThisDesktop(const DesktopEntry& entry)
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    const auto names = [&](const char* key) {
        return std::ranges::any_of(entry.list(key), [&](const std::string& desktop) {
            return desktops.contains(QString::fromStdString(desktop));
        });
    };
    if (!entry.list("OnlyShowIn").empty()) return names("OnlyShowIn");
    return !names("NotShowIn");
}

bool startsSomething(const DesktopEntry& entry, const std::filesystem::path& file)
{
    const auto command = entry.commandLine(file);
    return command && !QStandardPaths::findExecutable(QString::fromLocal8Bit(command->front())).isEmpty();
}

}

AutostartLoginItem::AutostartLoginItem(const XdgUserFolders& folders, Files& files,
                                       std::vector<std::string> command)
    : folders_(folders),
      files_(files),
      command_(std::move(command))
{
}

bool AutostartLoginItem::isEnabled() const
{
    for (const auto& folder : folders_.configFolders()) {
        const std::filesystem::path file = entryFile(folder);
        const auto content = files_.read(file);
        if (!content && content.error().missing) continue;
        const auto entry = content ? DesktopEntry::parse(*content) : std::nullopt;
        // Only the first file counts, whatever is in it.
        return entry && !entry->flag("Hidden") && entry->flag("X-GNOME-Autostart-enabled", true) &&
               isForThisDesktop(*entry) && entry->canBeTried() && startsSomething(*entry, file);
    }
    return false;
}

std::expected<void, Phrase> AutostartLoginItem::registerItem()
{
    return write(std::string("Icon=") + applicationId + "\nExec=" + execValue(command_) +
                 "\n"
                 "TryExec=" +
                 stringValue(command_.front()) +
                 "\n"
                 "Terminal=false\n"
                 "StartupNotify=false\n"
                 "X-GNOME-Autostart-enabled=true\n");
}

std::expected<void, Phrase> AutostartLoginItem::unregisterItem()
{
    if (hasSystemEntry()) return write("Hidden=true\n");
    const auto removed = files_.remove(entryFile(folders_.configFolders().front()));
    if (!removed && !removed.error().missing) return std::unexpected(removed.error().description);
    return {};
}

bool AutostartLoginItem::hasSystemEntry() const
{
    const auto& folders = folders_.configFolders();
    return std::any_of(folders.begin() + 1, folders.end(),
                       [&](const auto& folder) { return files_.kind(entryFile(folder)).has_value(); });
}

std::expected<void, Phrase> AutostartLoginItem::write(const std::string& lines)
{
    const std::filesystem::path file = entryFile(folders_.configFolders().front());
    if (const auto made = files_.createFolders(file.parent_path()); !made)
        return std::unexpected(made.error().description);
    const auto written = files_.replace(file, "[Desktop Entry]\nType=Application\nName=Chimewell\n" + lines);
    if (!written) return std::unexpected(written.error().description);
    return {};
}

}
