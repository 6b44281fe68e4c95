// SPDX-License-Identifier: MIT
#include "ui/panel/quick_row.h"

#include "ui/controls/elided_label.h"
#include "ui/controls/icon_button.h"
#include "ui/controls/switch_button.h"
#include "ui/controls/symbol_label.h"

#include <QHBoxLayout>
#include <QMouseEvent>

namespace chimewell {

QuickRow::QuickRow(const QString& name, QWidget* parent)
    : QWidget(parent),
      icon_(new SymbolLabel("bell", metrics::rowIcon, Tone::secondary)),
      switch_(new SwitchButton(name))
{
    setMinimumHeight(scaled(38));
    auto* label = new ElidedLabel(TextStyle::body);
    label->setFullText(name);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(scaled(12), 0, scaled(9), 0);
    layout->setSpacing(scaled(8));
    layout->addWidget(icon_);
    layout->addWidget(label, 1);
    layout->addWidget(switch_);
}

void QuickRow::setSymbol(std::string_view symbol, Tone tone)
{
    icon_->setSymbol(symbol, tone);
}

IconButton* QuickRow::addButton(std::string_view symbol, const QString& name)
{
    auto* button = new IconButton(symbol, name);
    auto* box = qobject_cast<QHBoxLayout*>(layout());
    box->insertWidget(box->count() - 1, button);
    QWidget::setTabOrder(switch_, button);
    return button;
}

void QuickRow::mouseReleaseEvent(QMouseEvent* event)
{
    // The name is as good a place to click as the switch.
    if (event->button() == Qt::LeftButton && rect().contains(event->pos())) switch_->click();
}

}
