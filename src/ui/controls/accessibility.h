// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

class QWidget;

namespace chimewell {

/// Tells assistive technology what a widget of ours is; Qt takes every widget that it does not know for a
/// mere container. To be called before its accessible name is set.
void setAccessibleRole(QWidget* widget, QAccessible::Role role);

}
