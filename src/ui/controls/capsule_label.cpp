// SPDX-License-Identifier: MIT
#include "ui/controls/capsule_label.h"

#include "ui/controls/accessible_role.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"

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

}
