// SPDX-License-Identifier: MIT
#include "platform/linux/tray/dbus_menu.h"

#include <QDBusMetaType>
#include <QGuiApplication>

#include <cstddef>
#include <utility>

namespace chimewell {

namespace {

/// Number 0 is the menu itself. Each entry has an even number, and the separator above it the one before.
constexpr int menuId = 0;
constexpr int entryId(std::size_t index)
{
    return 2 * static_cast<int>(index) + 2;
}
constexpr int separatorId(std::size_t index)
{
    return entryId(index) - 1;
}

}

QDBusArgument& operator<<(QDBusArgument& out, const DbusMenuLayout& layout)
{
    out.beginStructure();
    out << layout.id << layout.properties;
    out.beginArray(qMetaTypeId<QDBusVariant>());
    for (const DbusMenuLayout& child : layout.children)
        out << QDBusVariant(QVariant::fromValue(child));
    out.endArray();
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, DbusMenuLayout& layout)
{
    in.beginStructure();
    in >> layout.id >> layout.properties;
    in.beginArray();
    while (!in.atEnd()) {
        QDBusVariant child;
        in >> child;
        layout.children.push_back(qdbus_cast<DbusMenuLayout>(child.variant()));
    }
    in.endArray();
    in.endStructure();
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const DbusMenuProperties& properties)
{
    out.beginStructure();
    out << properties.id << properties.properties;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, DbusMenuProperties& properties)
{
    in.beginStructure();
    in >> properties.id >> properties.properties;
    in.endStructure();
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const DbusMenuEvent& event)
{
    out.beginStructure();
    out << event.id << event.name << event.data << event.timestamp;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, DbusMenuEvent& event)
{
    in.beginStructure();
    in >> event.id >> event.name >> event.data >> event.timestamp;
    in.endStructure();
    return in;
}

DbusMenu::DbusMenu()
{
    qDBusRegisterMetaType<DbusMenuLayout>();
    qDBusRegisterMetaType<DbusMenuProperties>();
    qDBusRegisterMetaType<QList<DbusMenuProperties>>();
    qDBusRegisterMetaType<DbusMenuEvent>();
    qDBusRegisterMetaType<QList<DbusMenuEvent>>();
}

void DbusMenu::show(const std::vector<IconMenuEntry>& entries)
{
    if (entries == entries_) return;
    entries_ = entries;
    Q_EMIT LayoutUpdated(++revision_, menuId);
}

QString DbusMenu::textDirection()
{
    return QGuiApplication::isRightToLeft() ? QStringLiteral("rtl") : QStringLiteral("ltr");
}

QVariantMap DbusMenu::propertiesOf(int id) const
{
    if (id == menuId) return {{QStringLiteral("children-display"), QStringLiteral("submenu")}};
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (id == separatorId(i)) return {{QStringLiteral("type"), QStringLiteral("separator")}};
        if (id != entryId(i)) continue;
        // A single underscore would mark the key that chooses the entry.
        QVariantMap properties{
            {QStringLiteral("label"),
             QString::fromStdString(entries_[i].label).replace(u'_', QStringLiteral("__"))}};
        if (const auto isChecked = entries_[i].isChecked) {
            properties.insert(QStringLiteral("toggle-type"), QStringLiteral("checkmark"));
            properties.insert(QStringLiteral("toggle-state"), *isChecked ? 1 : 0);
        }
        return properties;
    }
    return {};
}

uint DbusMenu::GetLayout(int parent, int depth, const QStringList&, DbusMenuLayout& layout) const
{
    layout = {.id = parent, .properties = propertiesOf(parent)};
    if (parent != menuId || depth == 0) return revision_;
    const auto add = [&](int id) { layout.children.push_back({.id = id, .properties = propertiesOf(id)}); };
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (entries_[i].beginsGroup) add(separatorId(i));
        add(entryId(i));
    }
    return revision_;
}

QList<DbusMenuProperties> DbusMenu::GetGroupProperties(const QList<int>& ids, const QStringList&) const
{
    QList<DbusMenuProperties> found;
    const auto add = [&](int id) { found.append({.id = id, .properties = propertiesOf(id)}); };
    for (const int id : ids)
        add(id);
    if (!ids.isEmpty()) return found;
    for (std::size_t i = 0; i < entries_.size(); ++i)
        add(entryId(i));
    return found;
}

QDBusVariant DbusMenu::GetProperty(int id, const QString& name) const
{
    const QVariant value = propertiesOf(id).value(name);
    return QDBusVariant(value.isValid() ? value : QVariant(QString()));
}

void DbusMenu::Event(int id, const QString& name, const QDBusVariant&, uint)
{
    if (name != QStringLiteral("clicked")) return;
    for (std::size_t i = 0; i < entries_.size(); ++i)
        if (id == entryId(i)) {
            onChosen(entries_[i].command);
            return;
        }
}

QList<int> DbusMenu::EventGroup(const QList<DbusMenuEvent>& events)
{
    for (const DbusMenuEvent& event : events)
        Event(event.id, event.name, event.data, event.timestamp);
    return {};
}

bool DbusMenu::AboutToShow(int)
{
    return false; // what was told is still true
}

QList<int> DbusMenu::AboutToShowGroup(const QList<int>&, QList<int>& unknown)
{
    unknown.clear();
    return {};
}

}
