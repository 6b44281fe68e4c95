// SPDX-License-Identifier: MIT
#include "ui/settings/pane.h"

#include "ui/controls/card.h"
#include "ui/controls/layouts.h"
#include "ui/controls/text_label.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double widest = 640, sidePadding = 24, endPadding = 20;
constexpr double introHeight = 28, betweenCards = 12, aboveHeading = 22, aboveFirstHeading = 4,
                 belowHeading = 8;

}

PaneColumn::PaneColumn() : column_(makeColumn(this))
{
    column_->setContentsMargins(scaled(sidePadding), scaled(endPadding), scaled(sidePadding),
                                scaled(endPadding));
}

void PaneColumn::addIntro(const QString& text, QWidget* trailing)
{
    auto* intro = makeParagraph(TextStyle::body, Tone::secondary, text);
    intro->setMinimumHeight(scaled(introHeight));
    auto* line = new QHBoxLayout;
    line->setContentsMargins(
        directed(scaled(cardEdge), 0, scaled(trailing ? cardEdge - flatPadding : cardEdge), 0));
    line->addWidget(intro, 1);
    if (trailing) line->addWidget(trailing, 0, Qt::AlignTop);
    column_->addLayout(line);
    column_->addSpacing(scaled(belowHeading));
}

void PaneColumn::addHeading(const QString& text)
{
    column_->addSpacing(scaled(isAfterCard_ ? aboveHeading : aboveFirstHeading));
    auto* heading = new TextLabel(TextStyle::subheadlineSemibold, Tone::secondary, text);
    heading->setContentsMargins(scaled(cardEdge), 0, scaled(cardEdge), 0);
    column_->addWidget(heading);
    column_->addSpacing(scaled(belowHeading));
    isAfterCard_ = false;
}

Card* PaneColumn::addCard()
{
    auto* card = new Card;
    addSection(card);
    return card;
}

void PaneColumn::addSection(QWidget* section)
{
    if (isAfterCard_) column_->addSpacing(scaled(betweenCards));
    column_->addWidget(section);
    isAfterCard_ = true;
}

void PaneColumn::finish()
{
    column_->addStretch(1);
}

void PaneColumn::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // A scroll bar takes its room from the padding: nothing moves when it appears.
    const QWidget* area = parentWidget() ? parentWidget()->parentWidget() : nullptr;
    const int room = area ? area->width() : width();
    const int side = std::max(scaled(sidePadding), (room - scaled(widest)) / 2);
    const QMargins margins = directed(side, scaled(endPadding), side - (room - width()), scaled(endPadding));
    if (column_->contentsMargins() != margins) column_->setContentsMargins(margins);
}

}
