// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariant>

#include <functional>
#include <optional>

namespace chimewell {

/// Whether the desktop wants applications dark, as its portal says (org.freedesktop.portal.Settings,
/// namespace org.freedesktop.appearance, key color-scheme: 1 dark, 2 light, 0 no preference).
class DesktopAppearance final : public QObject {
    Q_OBJECT
public:
    /// `changed` runs, always later, with the first answer and with each change.
    DesktopAppearance(const QDBusConnection& bus, std::function<void(std::optional<bool> isDark)> changed);

private Q_SLOTS:
    void settingChanged(const QDBusMessage& change);

private:
    void tell(const QVariant& value) const;

    std::function<void(std::optional<bool>)> changed_;
};

}
