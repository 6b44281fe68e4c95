// SPDX-License-Identifier: MIT
#pragma once

#include "ports/status_icon.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <vector>

namespace chimewell {

/// An entry of a menu on the bus: its number, its properties, and what is below it.
struct DbusMenuLayout {
    int id = 0;
    QVariantMap properties;
    std::vector<DbusMenuLayout> children = {};
};

struct DbusMenuProperties {
    int id = 0;
    QVariantMap properties;
};

/// What the user did to an entry.
struct DbusMenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint timestamp = 0;
};

QDBusArgument& operator<<(QDBusArgument& out, const DbusMenuLayout& layout);
const QDBusArgument& operator>>(const QDBusArgument& in, DbusMenuLayout& layout);
QDBusArgument& operator<<(QDBusArgument& out, const DbusMenuProperties& properties);
const QDBusArgument& operator>>(const QDBusArgument& in, DbusMenuProperties& properties);
QDBusArgument& operator<<(QDBusArgument& out, const DbusMenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& in, DbusMenuEvent& event);

/// The icon's menu on the session bus, which the desktop's panel draws: the interface
/// `com.canonical.dbusmenu`, version 3 (libdbusmenu's interface description).
class DbusMenu final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)
public:
    DbusMenu();

    void show(const std::vector<IconMenuEntry>& entries);

    std::function<void(IconCommand command)> onChosen; ///< Set once, before the first entry is shown.

    static uint version() { return 3; }
    static QString status() { return QStringLiteral("normal"); }
    static QString textDirection();
    static QStringList iconThemePath() { return {}; }

public Q_SLOTS:
    // Names on the bus. NOLINTBEGIN(readability-identifier-naming)
    Q_SCRIPTABLE uint GetLayout(int parent, int depth, const QStringList& names,
                                chimewell::DbusMenuLayout& layout) const;
    Q_SCRIPTABLE QList<chimewell::DbusMenuProperties> GetGroupProperties(const QList<int>& ids,
                                                                         const QStringList& names) const;
    Q_SCRIPTABLE QDBusVariant GetProperty(int id, const QString& name) const;
    Q_SCRIPTABLE void Event(int id, const QString& name, const QDBusVariant& data, uint timestamp);
    Q_SCRIPTABLE QList<int> EventGroup(const QList<chimewell::DbusMenuEvent>& events);
    Q_SCRIPTABLE static bool AboutToShow(int id);
    Q_SCRIPTABLE static QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& unknown);

Q_SIGNALS:
    Q_SCRIPTABLE void LayoutUpdated(uint revision, int parent);
    // NOLINTEND(readability-identifier-naming)

private:
    QVariantMap propertiesOf(int id) const;

    std::vector<IconMenuEntry> entries_;
    uint revision_ = 0;
};

}

Q_DECLARE_METATYPE(chimewell::DbusMenuLayout)
Q_DECLARE_METATYPE(chimewell::DbusMenuProperties)
Q_DECLARE_METATYPE(chimewell::DbusMenuEvent)
