// SPDX-License-Identifier: MIT
#include "ui/settings/setting_row.h"

#include "ui/controls/edges.h"
#include "ui/controls/text_label.h"
#include "ui/settings/row_layout.h"

#include <QVBoxLayout>

namespace chimewell {

namespace {

constexpr double rowHeight = 45, aboveAndBelow = 8; // with the hairline above

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

}
