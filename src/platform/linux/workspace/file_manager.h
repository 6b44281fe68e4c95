// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>

#include <filesystem>
#include <string>

namespace chimewell {

class PathInspector;

/// The desktop's file manager by its bus interface (org.freedesktop.FileManager1), and where nobody
/// offers that, whatever program the user has chosen for folders.
class FileManager {
public:
    /// `paths` outlives the file manager.
    FileManager(QDBusConnection bus, std::filesystem::path home, PathInspector& paths);

    /// Shows what is known to be a folder; false when neither a bus nor an opening program is there.
    bool openFolder(const std::filesystem::path& folder, const std::string& activationToken);
    /// Shows the folder that `path` is in, with `path` selected where the file manager can.
    void reveal(const std::filesystem::path& path, const std::string& activationToken);

private:
    void show(const QString& method, const std::filesystem::path& shown,
              const std::filesystem::path& otherwise, const std::string& activationToken);
    void openByChoice(const std::filesystem::path& folder, const std::string& activationToken);

    QDBusConnection bus_;
    std::filesystem::path home_;
    PathInspector& paths_;
    QObject context_; ///< Ends the waiting for answers with this object.
};

}
