// SPDX-License-Identifier: MIT
#include "ui/controls/symbol_label.h"

#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/symbol.h"

#include <QPainter>

namespace chimewell {

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

}
