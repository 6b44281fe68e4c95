// SPDX-License-Identifier: MIT
#include "ui/settings/event_row.h"

#include "ui/controls/edges.h"
#include "ui/controls/fold.h"
#include "ui/settings/alert_strip.h"
#include "ui/settings/event_header.h"
#include "ui/settings/spoken_options.h"

#include <QVBoxLayout>

namespace chimewell {

EventRow::EventRow(Services& services, CanonicalEvent event, VoiceList& voices, QWidget* parent)
    : QWidget(parent),
      editor_(services, event),
      header_(new EventHeader(editor_)),
      strip_(new AlertStrip(editor_)),
      spoken_(new SpokenOptions(editor_, voices)),
      whenSpoken_(new Fold(spoken_))
{
    auto* content = new QWidget;
    auto* inside = new QVBoxLayout(content);
    inside->setContentsMargins(
        directed(inRow(afterSymbol), scaled(4), inRow(cardEdge) - aroundCheckBox, scaled(14)));
    inside->setSpacing(0);
    inside->addWidget(strip_);
    inside->addWidget(whenSpoken_);
    options_ = new Fold(content);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(header_);
    layout->addWidget(options_);

    connect(header_, &EventHeader::openChanged, this, [this](bool isOpen) { setOpen(isOpen); });
    connect(header_, &EventHeader::enabledChanged, this, [this](bool isEnabled) {
        editor_.change([&](EventSetting& setting) { setting.enabled = isEnabled; });
    });
    storeChange_ = services.store.onChange([this] { showSetting(); });
    showSetting();
}

void EventRow::setOpen(bool isOpen)
{
    options_->setOpen(isOpen);
    header_->showOpen(isOpen);
}

void EventRow::showSetting()
{
    const EventSetting setting = editor_.setting();
    header_->showEnabled(setting.enabled);
    // Whoever switches an event on is about to set it up.
    if (setting.enabled && !wasEnabled_) setOpen(true);
    wasEnabled_ = setting.enabled;
    strip_->show(setting);
    spoken_->show(setting);
    whenSpoken_->setOpen(setting.speak);
}

}
