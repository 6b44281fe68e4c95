// SPDX-License-Identifier: MIT
#include "ui/controls/mnemonic_hints.h"

#include "ui/look/chimewell_style.h"

#include <QKeyEvent>
#include <QWidget>

namespace chimewell {

MnemonicHints::MnemonicHints(QWidget* window) : QObject(window), window_(window)
{
    window->installEventFilter(this);
}

bool MnemonicHints::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt)
        ChimewellStyle::setUnderlinesMnemonics(window_, event->type() == QEvent::KeyPress);
    else if (event->type() == QEvent::WindowDeactivate) // the release is not told
        ChimewellStyle::setUnderlinesMnemonics(window_, false);
    return QObject::eventFilter(watched, event);
}

}
