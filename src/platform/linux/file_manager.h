// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>

#include <filesystem>
#include <string>

namespace chimewell {

/// The desktop's file manager by its bus interface (org.freedesktop.FileManager1), and where nobody
/// offers that, whatever program the user has chosen for folders.
class FileManager {
public:
    FileManager(QDBusConnection bus, std::filesystem::path home);

    /// Shows the folder. Nothing but a folder is ever opened: false for anything else, for a path that is
    /// not absolute, and when neither a bus nor an opening program is there.
    bool openFolder(const std::filesystem::path& folder, const std::string& activationToken);
    /// Shows the folder that `path` is in, with `path` selected where the file manager can.
    void reveal(const std::filesystem::path& path, const std::string& activationToken);

private:
    void show(const QString& method, const std::filesystem::path& shown,
              const std::filesystem::path& otherwise, const std::string& activationToken);
    void openByChoice(const std::filesystem::path& folder, const std::string& activationToken) const;

    QDBusConnection bus_;
    std::filesystem::path home_;
    QObject context_; ///< Ends the waiting for answers with this object.
};

}
