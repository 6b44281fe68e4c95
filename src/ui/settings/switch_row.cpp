// SPDX-License-Identifier: MIT
#include "ui/settings/switch_row.h"

#include "ui/controls/edges.h"
#include "ui/controls/note.h"
#include "ui/controls/switch_button.h"
#include "ui/controls/text_label.h"
#include "ui/settings/row_layout.h"
#include "ui/words.h"

#include <QMouseEvent>
#include <QVBoxLayout>

namespace chimewell {

namespace {

constexpr double aboveAndBelow = 9;

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
    layout->setContentsMargins(
        directed(inRow(cardEdge), scaled(aboveAndBelow), inRow(cardEdge) - ringRoom, scaled(aboveAndBelow)));
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
