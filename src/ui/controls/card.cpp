// SPDX-License-Identifier: MIT
#include "ui/controls/card.h"

#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"

#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

namespace chimewell {

namespace {

constexpr char textStartProperty[] = "textStart";

}

Card::Card(QWidget* parent) : QWidget(parent), layout_(new QVBoxLayout(this))
{
    layout_->setContentsMargins(1, 1, 1, 1);
    layout_->setSpacing(0);
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

}
