// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

class QWidget;

namespace chimewell {

/// Tells assistive technology the role of one of our widgets; for Qt, every widget that it does not know is a
/// mere container. Call it before setting the accessible name.
void setAccessibleRole(QWidget* widget, QAccessible::Role role);

/// Explains a control, as its tooltip and to screen readers.
void setHelp(QWidget& control, const QString& help);

/// Tells screen readers that the widget has just appeared.
void announce(QWidget& widget);

}
