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
    QAccessible::installFactory(withRole); // does nothing when it is installed
    widget->setProperty(roleProperty, static_cast<int>(role));
}

void setHelp(QWidget& control, const QString& help)
{
    control.setToolTip(help);
    control.setAccessibleDescription(help);
}

void announce(QWidget& widget)
{
    QAccessibleEvent event(&widget, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

}
