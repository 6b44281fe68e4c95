// SPDX-License-Identifier: MIT
#include "ui/controls/card.h"

#include "ui/controls/buttons.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

namespace chimewell {

namespace {

constexpr char textStartProperty[] = "textStart";
constexpr double rowHeight = 45, aboveAndBelow = 8; // including the hairline above

}

Card::Card() : layout_(makeColumn(this))
{
    layout_->setContentsMargins(1, 1, 1, 1);
}

void Card::setContent(QWidget* content, double padding)
{
    const int space = scaled(padding) + 1;
    layout_->setContentsMargins(space, space, space, space);
    layout_->addWidget(content);
}

void Card::addRow(QWidget* row, double textStart)
{
    insertRow(layout_->count(), row, textStart);
}

void Card::insertRow(int index, QWidget* row, double textStart)
{
    row->setProperty(textStartProperty, textStart);
    layout_->insertWidget(index, row);
}

void Card::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int radius = scaled(metrics::cardRadius);
    fillRounded(painter, rect(), radius, colours().card);
    strokeRounded(painter, rect(), radius, colours().cardBorder());

    painter.setRenderHint(QPainter::Antialiasing, false);
    bool isFirst = true;
    for (int i = 0; i < layout_->count(); ++i) {
        const QWidget* row = layout_->itemAt(i)->widget();
        if (!row || row->isHidden()) continue;
        const QVariant start = row->property(textStartProperty);
        if (!isFirst && start.isValid()) {
            const QRect line(scaled(start.toDouble()), row->y(), width() - scaled(start.toDouble()) - 1, 1);
            painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), line), colours().separator());
        }
        isFirst = false;
    }
}

SettingRow::SettingRow(const QString& label, QWidget* control)
    : label_(makeParagraph(TextStyle::body, Tone::neutral, label))
{
    auto* layout = makeColumn(this);
    layout->setContentsMargins(inRow(cardEdge), scaled(aboveAndBelow) + 1, inRow(cardEdge),
                               scaled(aboveAndBelow));
    layout->addLayout(new RowLayout(label_, control));
    setMinimumHeight(scaled(rowHeight));
}

SwitchRow::SwitchRow(const QString& label, const QString& caption, std::string_view symbol)
    : hasSymbol_(!symbol.empty()),
      label_(makeParagraph(TextStyle::body, Tone::neutral, label)),
      switch_(new SwitchButton(label)),
      caption_(makeParagraph(TextStyle::caption, Tone::secondary)),
      error_(new Note)
{
    const int edge = hasSymbol_ ? scaled(cardEdge - 1) : inRow(cardEdge);
    const int around = scaled(hasSymbol_ ? 10 : 9);
    const int textStart = hasSymbol_ ? scaled(metrics::rowIcon) + scaled(8) : 0;
    auto* layout = makeColumn(this, hasSymbol_ ? 2 : 4);
    layout->setContentsMargins(directed(edge, around, edge - ringRoom, around));
    auto* line = makeLine(nullptr, 8);
    if (hasSymbol_) line->addWidget(new SymbolLabel(symbol, metrics::rowIcon));
    line->addLayout(new RowLayout(label_, switch_), 1);
    layout->addLayout(line);
    const int beside = hasSymbol_ ? switch_->sizeHint().width() + scaled(8) : scaled(metrics::switchWidth);
    caption_->setContentsMargins(directed(textStart, 0, beside, 0));
    layout->addWidget(caption_);
    setCaption(caption);
    if (hasSymbol_) error_->setContentsMargins(0, scaled(4), 0, 0);
    error_->hide();
    layout->addWidget(error_);
}

void SwitchRow::setCaption(const QString& caption)
{
    caption_->setText(caption);
    caption_->setVisible(!caption.isEmpty());
    switch_->setAccessibleDescription(caption);
}

void SwitchRow::showError(const QString& message)
{
    error_->showError(message);
}

void SwitchRow::mouseReleaseEvent(QMouseEvent* event)
{
    const QRect clickable = hasSymbol_ ? rect() : label_->geometry();
    if (event->button() == Qt::LeftButton && clickable.contains(event->pos())) switch_->click();
}

}
