// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace chimewell {

/// Our seat on the session bus: the well-known name, and the interface `org.freedesktop.Application`
/// (freedesktop.org, Desktop Entry 1.5, "D-Bus Activation") through which the desktop and the hook reach us.
class FreedesktopApplication final : public QObject {
    Q_OBJECT
public:
    /// What a request sets off; all run on the event loop.
    struct Handlers {
        /// Once for each URL of a request; absent for a request that named none.
        std::function<void(const std::optional<std::string>& url)> open;
        std::function<void()> activate;
        std::function<void(const std::string& name)> action;
    };
    explicit FreedesktopApplication(QDBusConnection bus);

    /// Offers the object and then takes the name, so that the request that started us finds the object.
    /// False when another process has the name, or there is no bus.
    bool claim();
    /// Requests wait for the event loop, so that handlers set before it runs miss none.
    void setHandlers(Handlers handlers) { handlers_ = std::move(handlers); }

    static constexpr char busName[] = "app.chimewell.Chimewell";
    static constexpr char objectPath[] = "/app/chimewell/Chimewell";

private:
    friend class FreedesktopApplicationAdaptor;

    QDBusConnection bus_;
    Handlers handlers_;
};

/// The interface as QtDBus exports it.
class FreedesktopApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    explicit FreedesktopApplicationAdaptor(FreedesktopApplication& application);

public Q_SLOTS:
    // The bus knows these methods by their names. NOLINTBEGIN(readability-identifier-naming)
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameter, const QVariantMap& platformData);
    // NOLINTEND(readability-identifier-naming)

private:
    FreedesktopApplication& application_;
};

}
