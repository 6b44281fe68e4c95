// SPDX-License-Identifier: MIT
#include "ui/controls/icon_button.h"

#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"

#include <QPainter>

namespace chimewell {

IconButton::IconButton(std::string_view symbol, const QString& name, QWidget* parent)
    : QAbstractButton(parent),
      symbol_(symbol)
{
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

void IconButton::setSymbol(std::string_view symbol)
{
    symbol_ = symbol;
    update();
}

QSize IconButton::sizeHint() const
{
    return {scaled(metrics::iconButton), scaled(metrics::iconButton)};
}

void IconButton::paintEvent(QPaintEvent*)
{
    const Colours& c = colours();
    QPainter painter(this);
    const int radius = scaled(metrics::controlRadius);
    if (isEnabled() && (isDown() || underMouse()))
        fillRounded(painter, rect(), radius, c.wash(isDown() ? Colours::pressed : Colours::hover));
    const QColor ink =
        isEnabled() ? (underMouse() ? c.text : c.secondary) : Colours::faint(c.text, Colours::disabled);
    paintSymbol(painter, symbol_, rect(), scaled(metrics::rowIcon), ink, layoutDirection());
    if (ChimewellStyle::showsFocus(this)) paintFocusRing(painter, rect(), radius);
}

}
