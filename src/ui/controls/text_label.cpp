// SPDX-License-Identifier: MIT
#include "ui/controls/text_label.h"

#include "ui/look/colours.h"

#include <QEvent>
#include <QGuiApplication>
#include <QRegularExpression>

namespace chimewell {

namespace {

QColor colourOf(Ink ink)
{
    const Colours& c = colours();
    switch (ink) {
    case Ink::text:
        return c.text;
    case Ink::secondary:
        return c.secondary;
    case Ink::accent:
        return c.accentText;
    case Ink::green:
        return c.green;
    case Ink::orange:
        return c.orange;
    case Ink::red:
        break;
    }
    return c.red;
}

QString held(QString text)
{
    for (const QChar sign : {QChar(0x2013), QChar(0x2014), QChar(0x25B8)})
        text.replace(QLatin1Char(' ') + sign, QChar(QChar::Nbsp) + QString(sign));
    return text;
}

}

TextLabel::TextLabel(TextStyle style, Ink ink, QWidget* parent) : QLabel(parent), style_(style), ink_(ink)
{
    setTextFormat(Qt::PlainText);
    follow();
}

void TextLabel::setText(const QString& text)
{
    QLabel::setText(held(text));
    setAccessibleName(text);
}

void TextLabel::setMarkedText(const QString& text)
{
    static const QRegularExpression bold(QStringLiteral("\\*\\*(.+?)\\*\\*"));
    setTextFormat(Qt::RichText);
    QLabel::setText(held(text.toHtmlEscaped()).replace(bold, QStringLiteral("<b>\\1</b>")));
    setAccessibleName(QString(text).remove(QStringLiteral("**")));
}

void TextLabel::setInk(Ink ink)
{
    ink_ = ink;
    follow();
}

void TextLabel::setWrapping(bool wraps)
{
    setWordWrap(wraps);
}

QSize TextLabel::minimumSizeHint() const
{
    const QSize smallest = QLabel::minimumSizeHint();
    return wordWrap() ? QSize(1, smallest.height()) : smallest; // a long path makes no window wide
}

void TextLabel::setSelectable(bool isSelectable)
{
    setTextInteractionFlags(isSelectable ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                         : Qt::NoTextInteraction);
}

void TextLabel::setCentred(bool isCentred)
{
    isCentred_ = isCentred;
    follow();
}

void TextLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    switch (event->type()) {
    case QEvent::ApplicationPaletteChange:
    case QEvent::ApplicationFontChange:
    case QEvent::LayoutDirectionChange:
    case QEvent::EnabledChange:
        follow();
        break;
    default:
        break;
    }
}

void TextLabel::follow()
{
    if (isFollowing_) return;
    isFollowing_ = true;
    QPalette palette = QGuiApplication::palette();
    const QColor colour = colourOf(ink_);
    palette.setColor(QPalette::WindowText, colour);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Colours::faint(colour, Colours::disabled));
    setPalette(palette);
    setFont(fontFor(style_));
    // By itself a label would follow the direction of its text and not that of the window.
    const bool leftwards = layoutDirection() == Qt::RightToLeft;
    const Qt::Alignment side = leftwards ? Qt::AlignRight : Qt::AlignLeft;
    setAlignment(Qt::AlignVCenter | (isCentred_ ? Qt::AlignHCenter : side | Qt::AlignAbsolute));
    isFollowing_ = false;
}

}
