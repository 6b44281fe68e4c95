// SPDX-License-Identifier: MIT
#include "ui/controls/windows.h"

#include "ui/look/chimewell_style.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QSet>
#include <QShortcut>
#include <QWidget>

#include <algorithm>

namespace chimewell {

void setMnemonics(std::initializer_list<QAbstractButton*> buttons)
{
    QSet<QChar> taken;
    for (QAbstractButton* button : buttons) {
        QString text = withoutMnemonic(button->text());
        const auto letter = std::ranges::find_if(
            text, [&](QChar c) { return c.isLetter() && !taken.contains(c.toCaseFolded()); });
        if (letter != text.end()) {
            taken.insert(letter->toCaseFolded());
            text.insert(letter - text.begin(), u'&');
        }
        button->setText(text);
    }
}

QString withoutMnemonic(QString text)
{
    return text.remove(u'&');
}

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
