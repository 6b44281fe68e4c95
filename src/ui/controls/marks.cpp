// SPDX-License-Identifier: MIT
#include "ui/controls/marks.h"

#include "ui/controls/accessibility.h"
#include "ui/controls/layouts.h"
#include "ui/look/colours.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"
#include "values/texts.h"

#include <QPainter>

namespace chimewell {

SymbolLabel::SymbolLabel(std::string_view name, double size, Tone tone)
    : name_(name),
      size_(size),
      tone_(tone)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolLabel::setSymbol(std::string_view name, Tone tone)
{
    name_ = name;
    tone_ = tone;
    update();
}

QSize SymbolLabel::sizeHint() const
{
    return {scaled(size_), scaled(size_)};
}

void SymbolLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintSymbol(painter, name_, rect(), scaled(size_), colours().markColour(tone_), layoutDirection());
}

CapsuleLabel::CapsuleLabel(TextStyle style) : style_(style)
{
    setAccessibleRole(this, QAccessible::StaticText);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void CapsuleLabel::show(const QString& text, Tone tone)
{
    text_ = text;
    tone_ = tone;
    setAccessibleName(text);
    updateGeometry();
    update();
}

QSize CapsuleLabel::sizeHint() const
{
    const QFontMetrics size(fontFor(style_));
    return {size.horizontalAdvance(text_) + 2 * scaled(8), size.height() + 2 * scaled(2)};
}

void CapsuleLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor colour = colours().textColour(tone_);
    fillRounded(painter, rect(), height() / 2.0, Colours::faint(colour, Colours::capsule));
    painter.setPen(colour);
    painter.setFont(fontFor(style_));
    painter.drawText(rect(), Qt::AlignCenter, text_);
}

CapsuleLabel* makeBetaBadge(const Words& words)
{
    auto* badge = new CapsuleLabel(TextStyle::badge);
    badge->show(words(texts::beta), Tone::orange);
    setHelp(*badge, words(texts::betaTooltip));
    return badge;
}

Note::Note(TextStyle style, Tone textTone)
    : mark_(new SymbolLabel("info.circle", metrics::rowIcon)),
      text_(makeParagraph(style, textTone))
{
    text_->makeSelectable();
    auto* layout = makeLine(this, 8);
    layout->addWidget(mark_, 0, Qt::AlignTop);
    layout->addWidget(text_, 1);
}

void Note::setNote(std::string_view symbol, Tone tone, const QString& text)
{
    mark_->setSymbol(symbol, tone);
    text_->setText(text);
}

void Note::showError(const QString& message)
{
    if (!message.isEmpty()) setNote("exclamationmark.triangle", Tone::red, message);
    setVisible(!message.isEmpty());
}

}
