// SPDX-License-Identifier: MIT
#include "ui/walkthrough/flow_diagram.h"

#include "ui/controls/card.h"
#include "ui/controls/symbol_label.h"
#include "ui/controls/text_label.h"
#include "values/texts.h"

#include <QGridLayout>

namespace chimewell {

namespace {

constexpr double nodeWidth = 120;
constexpr double tile = 64;
constexpr double symbolSize = 28;

}

FlowDiagram::FlowDiagram(const Words& words, QWidget* parent) : QWidget(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(scaled(10));
    grid->setVerticalSpacing(scaled(12));
    addNode(*grid, "terminal", words(texts::yourAgent));
    addNode(*grid, "bolt.horizontal.circle", words(texts::hook));
    addNode(*grid, "bell.badge", words(texts::chimewell));
}

void FlowDiagram::addNode(QGridLayout& grid, std::string_view symbol, const QString& name)
{
    // Nodes stand in every other column, arrows between them.
    const int column = grid.count() == 0 ? 0 : grid.columnCount() + 1;
    if (column > 0)
        grid.addWidget(new SymbolLabel("arrow.right", metrics::rowIcon, Tone::secondary), 0, column - 1,
                       Qt::AlignCenter);
    auto* card = new Card;
    card->setContent(new SymbolLabel(symbol, symbolSize, Tone::accent), (tile - symbolSize) / 2 - 1);
    grid.addWidget(card, 0, column, Qt::AlignCenter);
    auto* label = new TextLabel(TextStyle::bodyMedium);
    label->setCentred(true);
    label->setText(name);
    grid.addWidget(label, 1, column);
    grid.setColumnMinimumWidth(column, scaled(nodeWidth));
}

}
