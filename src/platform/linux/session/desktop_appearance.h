// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariant>

#include <functional>
#include <optional>

namespace chimewell {

/// Follows whether the desktop prefers dark applications, which its portal tells
/// (org.freedesktop.portal.Settings, namespace org.freedesktop.appearance, key color-scheme).
class DesktopAppearance final : public QObject {
    Q_OBJECT
public:
    /// `changed` runs from the event loop with the first answer and with each change. Absent: no preference.
    DesktopAppearance(QDBusConnection bus, std::function<void(std::optional<bool> isDark)> changed);

private Q_SLOTS:
    void settingChanged(const QDBusMessage& change);

private:
    void report(const QVariant& value) const;

    std::function<void(std::optional<bool>)> changed_;
    bool hasChanged_ = false; ///< Since we started.
};

}
