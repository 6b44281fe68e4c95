// SPDX-License-Identifier: MIT
#include "ui/controls/field.h"

#include "ui/look/metrics.h"

#include <QHideEvent>

namespace chimewell {

Field::Field(const QString& name, QWidget* parent) : QLineEdit(parent)
{
    setAccessibleName(name);
    setTextMargins(scaled(7), 0, scaled(7), 0);
}

void Field::showText(const QString& text)
{
    if (!hasFocus() && text != this->text()) setText(text);
}

void Field::hideEvent(QHideEvent* event)
{
    QLineEdit::hideEvent(event);
    // The window is closed, or the field is taken away, while somebody writes in it.
    if (isModified()) Q_EMIT editingFinished();
}

}
