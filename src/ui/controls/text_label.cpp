// SPDX-License-Identifier: MIT
#include "ui/controls/text_label.h"

#include "ui/look/colours.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace chimewell {

namespace {

/// From one line of a paragraph to the next, in sizes of the font; more for a font that needs more.
constexpr double lineHeight = 1.35;

/// With a no-break space before each dash and arrow.
QString withHardSpaces(QString text)
{
    for (const QChar sign : {QChar(0x2013), QChar(0x2014), QChar(0x25B8)})
        text.replace(QLatin1Char(' ') + sign, QChar(QChar::Nbsp) + QString(sign));
    return text;
}

}

TextLabel::TextLabel(TextStyle style, Tone tone, const QString& text) : style_(style), tone_(tone)
{
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::NoTextInteraction); // a click on it is one on its row
    if (!text.isEmpty()) setText(text);
    applyStyle();
}

void TextLabel::setText(const QString& text)
{
    if (wordWrap())
        setParagraph(text.toHtmlEscaped());
    else
        QLabel::setText(withHardSpaces(text));
    setAccessibleName(text);
}

void TextLabel::setMarkedText(const QString& text)
{
    static const QRegularExpression bold(QStringLiteral("\\*\\*(.+?)\\*\\*"));
    setParagraph(text.toHtmlEscaped().replace(bold, QStringLiteral("<b>\\1</b>")));
    setAccessibleName(QString(text).remove(QStringLiteral("**")));
}

void TextLabel::setParagraph(const QString& html)
{
    paragraph_ = html;
    setTextFormat(Qt::RichText);
    // Only rich text can have a distance between its lines.
    const int line = static_cast<int>(std::lround(fontFor(style_).pixelSize() * lineHeight));
    const QString paragraph = QStringLiteral("<p style='white-space:pre-wrap; line-height:%1px'>%2</p>");
    QLabel::setText(html.isEmpty() ? QString() : paragraph.arg(line).arg(withHardSpaces(html)));
}

void TextLabel::setTone(Tone tone)
{
    tone_ = tone;
    applyStyle();
}

QSize TextLabel::minimumSizeHint() const
{
    const QSize smallest = QLabel::minimumSizeHint();
    return wordWrap() ? QSize(1, smallest.height()) : smallest; // a long path makes no window wide
}

void TextLabel::makeSelectable()
{
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void TextLabel::setCentred()
{
    isCentred_ = true;
    applyStyle();
}

void TextLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    switch (event->type()) {
    case QEvent::ApplicationPaletteChange:
    case QEvent::ApplicationFontChange:
    case QEvent::LayoutDirectionChange:
    case QEvent::EnabledChange:
        applyStyle();
        break;
    default:
        break;
    }
}

void TextLabel::applyStyle()
{
    if (isApplying_) return;
    isApplying_ = true;
    QPalette palette = QGuiApplication::palette();
    const QColor colour = colours().textColour(tone_);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text}) {
        palette.setColor(role, colour);
        palette.setColor(QPalette::Disabled, role, Colours::faint(colour, Colours::disabled));
    }
    setPalette(palette);
    setFont(fontFor(style_));
    if (!paragraph_.isEmpty()) setParagraph(paragraph_);
    // By itself a label follows the direction of its text and not that of the window.
    const bool leftwards = layoutDirection() == Qt::RightToLeft;
    const Qt::Alignment side = leftwards ? Qt::AlignRight : Qt::AlignLeft;
    setAlignment(Qt::AlignVCenter | (isCentred_ ? Qt::AlignHCenter : side | Qt::AlignAbsolute));
    isApplying_ = false;
}

TextLabel* makeParagraph(TextStyle style, Tone tone, const QString& text)
{
    auto* label = new TextLabel(style, tone);
    label->setWordWrap(true);
    label->setText(text);
    return label;
}

BalancedLabel::BalancedLabel(TextStyle style, Tone tone, int widest) : TextLabel(style, tone), widest_(widest)
{
    setWordWrap(true);
    setCentred();
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
    // Without the margins, which balance() derives from this height.
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
    // Qt wraps a tooltip only if it is rich text.
    const bool isElided = fontMetrics().horizontalAdvance(full_) > width();
    setToolTip(isElided ? QStringLiteral("<p>%1</p>").arg(full_.toHtmlEscaped()) : QString());
}

}
