// SPDX-License-Identifier: MIT
#include "ui/controls/marks.h"

#include "ui/controls/accessibility.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"

#include <QHBoxLayout>
#include <QPainter>

namespace chimewell {

namespace {

QColor textColour(Tone tone)
{
    const Colours& c = colours();
    if (tone == Tone::green) return c.green;
    return tone == Tone::orange ? c.orange : c.secondary;
}

}

SymbolLabel::SymbolLabel(std::string_view name, double size, Tone tone, QWidget* parent)
    : QWidget(parent),
      name_(name),
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
    paintSymbol(painter, name_, rect(), scaled(size_), colours().mark(tone_), layoutDirection());
}

StatusDot::StatusDot(QWidget* parent) : QWidget(parent)
{
    setFixedSize(8, 8);
}

void StatusDot::setTone(Tone tone)
{
    tone_ = tone;
    update();
}

void StatusDot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    fillRounded(painter, rect(), width() / 2.0, colours().mark(tone_));
}

void CapsuleLabel::show(const QString& text, Tone tone)
{
    text_ = text;
    tone_ = tone;
    setAccessibleRole(this, QAccessible::StaticText);
    setAccessibleName(text);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    updateGeometry();
    update();
}

QSize CapsuleLabel::sizeHint() const
{
    const QFontMetrics size(capsuleFont());
    return {size.horizontalAdvance(text_) + 2 * scaled(8), size.height() + 2 * scaled(2)};
}

void CapsuleLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor colour = textColour(tone_);
    fillRounded(painter, rect(), height() / 2.0, Colours::faint(colour, Colours::capsule));
    painter.setPen(colour);
    painter.setFont(capsuleFont());
    painter.drawText(rect(), Qt::AlignCenter, text_);
}

StatusPillLabel::StatusPillLabel(QWidget* parent) : CapsuleLabel(parent) {}

void StatusPillLabel::setPill(StatusPill::Kind kind, const QString& text)
{
    switch (kind) {
    case StatusPill::Kind::installed:
        return show(text, Tone::green);
    case StatusPill::Kind::setupNeeded:
        return show(text, Tone::orange);
    case StatusPill::Kind::notInstalled:
    case StatusPill::Kind::neutral:
        break;
    }
    show(text, Tone::secondary);
}

QFont StatusPillLabel::capsuleFont() const
{
    return fontFor(TextStyle::caption);
}

BetaBadge::BetaBadge(const QString& text, const QString& tooltip, QWidget* parent) : CapsuleLabel(parent)
{
    show(text, Tone::orange);
    setToolTip(tooltip);
    setAccessibleDescription(tooltip);
}

QFont BetaBadge::capsuleFont() const
{
    return fontFor(TextStyle::badge);
}

Note::Note(TextStyle style, Ink ink, QWidget* parent)
    : QWidget(parent),
      mark_(new SymbolLabel("info.circle", metrics::rowIcon, Tone::secondary)),
      text_(new TextLabel(style, ink))
{
    text_->setWrapping(true);
    text_->setSelectable(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(8));
    layout->addWidget(mark_, 0, Qt::AlignTop);
    layout->addWidget(text_, 1);
}

void Note::setNote(std::string_view symbol, Tone tone, const QString& text)
{
    mark_->setSymbol(symbol, tone);
    text_->setText(text);
}

}
