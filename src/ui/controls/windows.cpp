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

namespace {

class AltKeyFilter final : public QObject {
public:
    explicit AltKeyFilter(QWidget& window) : QObject(&window), window_(window) {}

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
        if (isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt)
            ChimewellStyle::setUnderlinesMnemonics(&window_, event->type() == QEvent::KeyPress);
        else if (event->type() == QEvent::WindowDeactivate) // no release will come
            ChimewellStyle::setUnderlinesMnemonics(&window_, false);
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget& window_;
};

}

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

void underlineMnemonicsWithAlt(QWidget& window)
{
    window.installEventFilter(new AltKeyFilter(window));
}

void addWindowKeys(QWidget& window, const std::function<void()>& openSettings,
                   const std::function<void()>& quit)
{
    const auto add = [&](QShortcut* shortcut, auto pressed) {
        QObject::connect(shortcut, &QShortcut::activated, &window, pressed);
    };
    // The standard key: a desktop may have several.
    add(new QShortcut(QKeySequence::Close, &window), [&window] { window.close(); });
    add(new QShortcut(Qt::CTRL | Qt::Key_Comma, &window), openSettings);
    add(new QShortcut(Qt::CTRL | Qt::Key_Q, &window), quit);
    underlineMnemonicsWithAlt(window);
}

}
