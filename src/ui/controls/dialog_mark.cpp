// SPDX-License-Identifier: MIT
#include "ui/controls/dialog_mark.h"

#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"

#include <QPainter>

namespace chimewell {

namespace {

constexpr double side = 40, symbolSide = 22;

}

DialogMark::DialogMark(std::string_view symbol, QWidget* parent) : QWidget(parent), symbol_(symbol)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DialogMark::sizeHint() const
{
    return {scaled(side), scaled(side)};
}

void DialogMark::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor ink = colours().accentText;
    fillRounded(painter, rect(), scaled(metrics::cardRadius), Colours::faint(ink, Colours::capsule));
    paintSymbol(painter, symbol_, rect(), scaled(symbolSide), ink, layoutDirection());
}

}
