// SPDX-License-Identifier: MIT
#include "ui/controls/accessibility.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace chimewell {

namespace {

constexpr char roleProperty[] = "accessibleRole";

QAccessibleInterface* withRole(const QString&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    const QVariant role = widget ? widget->property(roleProperty) : QVariant();
    if (!role.isValid()) return nullptr;
    return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

}

void setAccessibleRole(QWidget* widget, QAccessible::Role role)
{
    QAccessible::installFactory(withRole); // once: Qt knows those that it has
    widget->setProperty(roleProperty, static_cast<int>(role));
}

}
