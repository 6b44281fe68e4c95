// SPDX-License-Identifier: MIT
#include "ui/controls/picker.h"

#include <QWheelEvent>

namespace chimewell {

Picker::Picker(const QString& name, QWidget* parent) : QComboBox(parent)
{
    setAccessibleName(name);
    // Assistive technology shows the entry in the place of a picker's name.
    setAccessibleDescription(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
}

void Picker::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

}
