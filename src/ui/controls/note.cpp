// SPDX-License-Identifier: MIT
#include "ui/controls/note.h"

#include <QHBoxLayout>

namespace chimewell {

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
