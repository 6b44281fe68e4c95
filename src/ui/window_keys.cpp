// SPDX-License-Identifier: MIT
#include "ui/window_keys.h"

#include "ui/controls/mnemonic_hints.h"

#include <QShortcut>
#include <QWidget>

namespace chimewell {

void WindowKeys::addTo(QWidget* window) const
{
    const auto add = [window](QShortcut* shortcut, auto pressed) {
        QObject::connect(shortcut, &QShortcut::activated, window, pressed);
    };
    // By its meaning: a desktop may have several keys for it.
    add(new QShortcut(QKeySequence::Close, window), [window] { window->close(); });
    add(new QShortcut(Qt::CTRL | Qt::Key_Comma, window), openSettings);
    add(new QShortcut(Qt::CTRL | Qt::Key_Q, window), quit);
    new MnemonicHints(window);
}

}
