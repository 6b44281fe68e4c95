// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariantList>
#include <QVariantMap>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace chimewell {

/// The application on the session bus: its well-known name, and the interface `org.freedesktop.Application`
/// (freedesktop.org, Desktop Entry 1.5, "D-Bus Activation") through which the desktop and the helper call it.
class FreedesktopApplication final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    /// Requests are answered first and handled later, in order, one in each turn of the event loop: neither
    /// the sender nor our own windows wait while many of them are handled.
    struct Handlers {
        /// Runs once for each URL of a request, up to 256. Absent for a request without URLs.
        std::function<void(const std::optional<std::string>& url)> open;
        std::function<void()> activate;
        std::function<void(const std::string& name)> action;
    };
    explicit FreedesktopApplication(QDBusConnection bus);

    /// Registers the object and then the name, so that the request that started us finds the object. False
    /// when another process owns the name, or there is no bus.
    bool acquireName();
    /// Requests wait for the event loop, so handlers that are set before it runs miss none.
    void setHandlers(Handlers handlers) { handlers_ = std::move(handlers); }

public Q_SLOTS:
    // Names on the bus. NOLINTBEGIN(readability-identifier-naming)
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameter,
                                     const QVariantMap& platformData);
    // NOLINTEND(readability-identifier-naming)

private:
    void later(std::function<void()> request);
    void handleNext();

    QDBusConnection bus_;
    Handlers handlers_;
    std::deque<std::function<void()>> requests_; ///< Answered and not handled yet, oldest first.
    QTimer next_;                                ///< Runs while there are any.
};

/// Asks the running application, or the one that the bus then starts, to open `urls`, or without any to show
/// itself. Waits for the answer, because the bus drops a request whose sender has exited; but only two
/// seconds for an application that runs, which then hangs. False when none answered.
bool requestOpen(const QDBusConnection& bus, const QStringList& urls);

}
