// SPDX-License-Identifier: MIT
#include "ui/settings/pane_column.h"

#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/controls/text_label.h"
#include "ui/look/words.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double widest = 640, sidePadding = 24, endPadding = 20;
constexpr double introHeight = 28, betweenCards = 12, aboveHeading = 22, aboveFirstHeading = 4,
                 belowHeading = 8;

constexpr double rowHeight = 45, aboveAndBelow = 8; // with the hairline above

constexpr double aroundSwitchRow = 9;

}

PaneColumn::PaneColumn(QWidget* parent) : QWidget(parent), column_(new QVBoxLayout(this))
{
    column_->setSpacing(0);
    column_->setContentsMargins(scaled(sidePadding), scaled(endPadding), scaled(sidePadding),
                                scaled(endPadding));
}

void PaneColumn::addIntro(const QString& text, QWidget* trailing)
{
    auto* intro = new TextLabel(TextStyle::body, Ink::secondary);
    intro->setText(text);
    intro->setWrapping(true);
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
    auto* heading = new TextLabel(TextStyle::subheadlineSemibold, Ink::secondary);
    heading->setText(text);
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
    centre();
}

void PaneColumn::centre()
{
    // A scroll bar stands in the padding: nothing moves when it comes.
    const QWidget* area = parentWidget() ? parentWidget()->parentWidget() : nullptr;
    const int room = area ? area->width() : width();
    const int side = std::max(scaled(sidePadding), (room - scaled(widest)) / 2);
    const QMargins margins = directed(side, scaled(endPadding), side - (room - width()), scaled(endPadding));
    if (column_->contentsMargins() != margins) column_->setContentsMargins(margins);
}

SettingRow::SettingRow(const QString& label, QWidget* control, QWidget* parent)
    : QWidget(parent),
      label_(new TextLabel(TextStyle::body))
{
    label_->setText(label);
    label_->setWrapping(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(inRow(cardEdge), scaled(aboveAndBelow) + 1, inRow(cardEdge),
                               scaled(aboveAndBelow));
    layout->addLayout(new RowLayout(label_, control));
    setMinimumHeight(scaled(rowHeight));
}

SwitchRow::SwitchRow(const QString& label, const QString& caption, QWidget* parent)
    : QWidget(parent),
      label_(new TextLabel(TextStyle::body)),
      switch_(new SwitchButton(label)),
      error_(new Note)
{
    label_->setText(label);
    label_->setWrapping(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(directed(inRow(cardEdge), scaled(aroundSwitchRow), inRow(cardEdge) - ringRoom,
                                        scaled(aroundSwitchRow)));
    layout->setSpacing(scaled(4));
    layout->addLayout(new RowLayout(label_, switch_));
    if (!caption.isEmpty()) {
        auto* text = new TextLabel(TextStyle::caption, Ink::secondary);
        text->setText(caption);
        text->setWrapping(true);
        text->setContentsMargins(directed(0, 0, scaled(metrics::switchWidth), 0));
        switch_->setAccessibleDescription(caption);
        layout->addWidget(text);
    }
    error_->hide();
    layout->addWidget(error_);
}

void SwitchRow::showError(const QString& message)
{
    error_->setVisible(!message.isEmpty());
    error_->setNote("exclamationmark.triangle", Tone::red, message);
}

void SwitchRow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && label_->geometry().contains(event->pos())) switch_->click();
}

}
