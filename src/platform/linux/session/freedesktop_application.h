// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
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

/// Our seat on the session bus: the well-known name, and the interface `org.freedesktop.Application`
/// (freedesktop.org, Desktop Entry 1.5, "D-Bus Activation") through which the desktop and the hook reach us.
class FreedesktopApplication final : public QObject {
    Q_OBJECT
public:
    /// What a request sets off. Requests are answered first and handled later, in their order, one in each
    /// turn of the event loop: neither the sender nor our own windows wait for a long row of them.
    struct Handlers {
        /// Once for each URL of a request, up to 256; absent for a request that named none.
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

private:
    friend class FreedesktopApplicationAdaptor;

    void later(std::function<void()> request);
    void handleNext();

    QDBusConnection bus_;
    Handlers handlers_;
    std::deque<std::function<void()>> requests_; ///< Answered and not handled yet, oldest first.
    QTimer next_;                                ///< Runs while there are any.
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
