// SPDX-License-Identifier: MIT
#include "ui/settings/event_header.h"

#include "presentation/event_looks.h"
#include "ui/controls/edges.h"
#include "ui/controls/icon_button.h"
#include "ui/controls/switch_button.h"
#include "ui/controls/text_label.h"
#include "values/texts.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace chimewell {

namespace {

constexpr double headerHeight = 53, aboveAndBelow = 8; // with the hairline above

}

EventHeader::EventHeader(const EventSettingEditor& editor, QWidget* parent)
    : QWidget(parent),
      arrow_(new IconButton("chevron.right", editor.named(texts::optionsOf))),
      enabled_(new TextLabel(TextStyle::subheadline, Ink::secondary)),
      switch_(new SwitchButton(editor.named(texts::enabledOf)))
{
    auto* name = new TextLabel(TextStyle::bodyMedium);
    name->setText(editor.words()(displayName(editor.event())));
    name->setWrapping(true);
    auto* line = new TextLabel(TextStyle::subheadline, Ink::secondary);
    line->setText(editor.words()(description(editor.event())));
    line->setWrapping(true);
    enabled_->setText(editor.words()(texts::enabled));
    arrow_->setCheckable(true);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(name);
    texts->addWidget(line);
    auto* layout = new QHBoxLayout(this);
    // The arrow's button is wider than the column of symbols in whose middle it stands.
    const int around = (scaled(metrics::iconButton) - scaled(metrics::rowIcon)) / 2;
    layout->setContentsMargins(directed(inRow(cardEdge) - around, scaled(aboveAndBelow) + 1,
                                        inRow(cardEdge) - ringRoom, scaled(aboveAndBelow)));
    layout->setSpacing(0);
    setMinimumHeight(scaled(headerHeight));
    layout->addWidget(arrow_);
    layout->addSpacing(inRow(afterSymbol) - inRow(cardEdge) + around - scaled(metrics::iconButton));
    layout->addLayout(texts, 1);
    layout->addSpacing(scaled(12));
    layout->addWidget(enabled_);
    layout->addSpacing(scaled(8) - ringRoom);
    layout->addWidget(switch_);

    connect(switch_, &QAbstractButton::toggled, this, &EventHeader::enabledChanged);
    connect(arrow_, &QAbstractButton::toggled, this, &EventHeader::openChanged);
}

void EventHeader::showEnabled(bool isEnabled)
{
    switch_->show(isEnabled);
}

void EventHeader::showOpen(bool isOpen)
{
    const QSignalBlocker silence(arrow_);
    arrow_->setChecked(isOpen);
    arrow_->setSymbol(isOpen ? "chevron.down" : "chevron.right");
}

void EventHeader::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !rect().contains(event->pos())) return;
    if (enabled_->geometry().contains(event->pos()))
        switch_->click();
    else
        arrow_->click();
}

}
