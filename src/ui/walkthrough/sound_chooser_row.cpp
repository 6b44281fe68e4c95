// SPDX-License-Identifier: MIT
#include "ui/walkthrough/sound_chooser_row.h"

#include "presentation/event_looks.h"
#include "ui/controls/flow_layout.h"
#include "ui/controls/text_label.h"
#include "ui/look/symbol_icon.h"
#include "ui/sound_picker.h"
#include "values/texts.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>

namespace chimewell {

SoundChooserRow::SoundChooserRow(Services& services, CanonicalEvent event, QWidget* parent)
    : QWidget(parent),
      services_(services),
      words_(services.ports.translator),
      event_(event),
      name_(new TextLabel(TextStyle::bodyMedium))
{
    name_->setText(words_(displayName(event)));
    // The controls go below the name where both do not fit beside one another.
    auto* line = new FlowLayout(scaled(8), FlowLayout::Last::trails);
    line->addWidget(name_);
    line->addWidget(makeControls());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(15), scaled(8), scaled(13),
                               scaled(8)); // a check box has room around it
    layout->addLayout(line);

    subscription_ = services_.store.onChange([this] { showSetting(); });
    showSetting();
}

QWidget* SoundChooserRow::makeControls()
{
    const Words& words = words_;
    const Text name = displayName(event_);
    sound_ = new SoundPicker(words, words({texts::soundOf, {name}}));
    connect(sound_, &SoundPicker::soundChosen, this,
            [this](const std::string& id) { update([&](EventSetting& setting) { setting.soundId = id; }); });

    preview_ = new QPushButton(symbolIcon("play.circle"), words(texts::preview));
    preview_->setAccessibleName(words({texts::previewOf, {name}}));
    connect(preview_, &QPushButton::clicked, this, [this] { services_.actions.preview(event_); });

    readAloud_ = new QCheckBox(words(texts::readAloud));
    readAloud_->setIcon(symbolIcon("speaker.wave.2.fill", Tone::secondary));
    readAloud_->setAccessibleName(words({texts::readAloudOf, {name}}));
    readAloud_->setAccessibleDescription(words(texts::readAloudHelp));
    readAloud_->setToolTip(words(texts::readAloudHelp));
    connect(readAloud_, &QCheckBox::toggled, this,
            [this](bool isOn) { update([&](EventSetting& setting) { setting.speak = isOn; }); });

    auto* controls = new QWidget;
    auto* layout = new QHBoxLayout(controls);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(8));
    layout->addWidget(sound_);
    layout->addWidget(preview_);
    layout->addSpacing(scaled(6));
    layout->addWidget(readAloud_);
    return controls;
}

void SoundChooserRow::showSetting()
{
    const EventSetting* setting = services_.store.settings().setting(event_);
    setEnabled(setting != nullptr);
    if (!setting) return;
    sound_->show(setting->soundId);
    preview_->setEnabled(canPreview(*setting));
    const QSignalBlocker silence(readAloud_);
    readAloud_->setChecked(setting->speak);
}

void SoundChooserRow::update(const std::function<void(EventSetting&)>& change)
{
    services_.actions.changeEvent(event_, change);
}

}
