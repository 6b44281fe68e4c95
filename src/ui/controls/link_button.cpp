// SPDX-License-Identifier: MIT
#include "ui/controls/link_button.h"

#include "ui/look/colours.h"

#include <QEvent>
#include <QGuiApplication>

namespace chimewell {

LinkButton::LinkButton(const QString& text, QWidget* parent) : QPushButton(text, parent)
{
    setFlat(true);
    setAutoDefault(false);
    follow();
}

void LinkButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange) follow();
}

void LinkButton::follow()
{
    if (isFollowing_) return;
    isFollowing_ = true;
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::ButtonText, colours().accentText);
    setPalette(palette);
    isFollowing_ = false;
}

}
