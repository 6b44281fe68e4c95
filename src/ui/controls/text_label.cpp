// SPDX-License-Identifier: MIT
#include "ui/controls/text_label.h"

#include "ui/look/colours.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>
#include <numeric>

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

BalancedLabel::BalancedLabel(TextStyle style, Ink ink, int widest, QWidget* parent)
    : TextLabel(style, ink, parent),
      widest_(widest)
{
    setWrapping(true);
    setCentred(true);
}

void BalancedLabel::setText(const QString& text)
{
    TextLabel::setText(text);
    balance();
}

void BalancedLabel::setMarkedText(const QString& text)
{
    TextLabel::setMarkedText(text);
    balance();
}

int BalancedLabel::heightForWidth(int width) const
{
    // Of the text alone: the margins follow from it.
    const QMargins margins = contentsMargins();
    return TextLabel::heightForWidth(std::min(width, widest_) + margins.left() + margins.right());
}

void BalancedLabel::resizeEvent(QResizeEvent* event)
{
    TextLabel::resizeEvent(event);
    balance();
}

void BalancedLabel::changeEvent(QEvent* event)
{
    TextLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) balance();
}

void BalancedLabel::balance()
{
    const int height = heightForWidth(width());
    int tooNarrow = 0;
    int enough = std::min(width(), widest_);
    while (enough - tooNarrow > 1) {
        const int middle = std::midpoint(tooNarrow, enough);
        (heightForWidth(middle) > height ? tooNarrow : enough) = middle;
    }
    const int spare = width() - enough;
    setContentsMargins(spare / 2, 0, spare - spare / 2, 0);
}

void ElidedLabel::setFullText(const QString& text)
{
    full_ = QString(text).replace(QLatin1Char('\n'), QLatin1Char(' '));
    setAccessibleName(text);
    updateGeometry();
    update();
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 4, fontMetrics().height()};
}

QSize ElidedLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(full_) + 1, fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine,
                     fontMetrics().elidedText(full_, Qt::ElideRight, width()));
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    TextLabel::resizeEvent(event);
    // As rich text, which wraps; so what looks like markup has to be escaped.
    const bool isElided = fontMetrics().horizontalAdvance(full_) > width();
    setToolTip(isElided ? QStringLiteral("<p>%1</p>").arg(full_.toHtmlEscaped()) : QString());
}

}
