// SPDX-License-Identifier: MIT
#include "ui/controls/mnemonics.h"

#include <QAbstractButton>
#include <QSet>

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

}
