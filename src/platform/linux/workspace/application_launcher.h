// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/freedesktop/desktop_entries.h"

#include <QDBusConnection>
#include <QObject>

#include <filesystem>
#include <string>

namespace chimewell {

/// Starts installed applications, or brings forward those that allow only one of themselves.
class ApplicationLauncher {
public:
    ApplicationLauncher(QDBusConnection bus, std::filesystem::path home);
    /// Over the bus where the application asks for that, otherwise, or when nobody answers there, by
    /// its command line. `activationToken` may be empty.
    void launch(const InstalledEntry& application, const std::string& activationToken);

private:
    void runCommand(const InstalledEntry& application, const std::string& activationToken) const;

    QDBusConnection bus_;
    std::filesystem::path home_;
    QObject context_; ///< Ends the waiting for answers with this object.
};

}
