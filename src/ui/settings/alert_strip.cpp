// SPDX-License-Identifier: MIT
#include "ui/settings/alert_strip.h"

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

namespace {

constexpr double pickerWidth = 124;

void showChecked(QCheckBox& box, bool isChecked)
{
    const QSignalBlocker silence(&box);
    box.setChecked(isChecked);
}

QHBoxLayout* makeLine(QWidget* holder, double spacing)
{
    auto* line = new QHBoxLayout(holder);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(scaled(spacing));
    return line;
}

}

AlertStrip::AlertStrip(const EventSettingEditor& editor, QWidget* parent)
    : QWidget(parent),
      editor_(editor),
      preview_(new QPushButton(symbolIcon("play.circle"), editor.words()(texts::preview)))
{
    auto* line = new FlowLayout(scaled(8), FlowLayout::Last::trails, this);
    line->addWidget(makeSound());
    preview_->setAutoDefault(false);
    preview_->setAccessibleName(editor_.named(texts::previewOf));
    connect(preview_, &QPushButton::clicked, this, [this] { editor_.preview(); });
    line->addWidget(preview_);
    line->addWidget(makeOptions());
}

QWidget* AlertStrip::makeSound()
{
    auto* label = new TextLabel(TextStyle::body);
    label->setText(editor_.words()(texts::sound));
    sound_ = new SoundPicker(editor_.words(), editor_.named(texts::soundOf));
    sound_->setMinimumWidth(scaled(pickerWidth));
    connect(sound_, &SoundPicker::soundChosen, this, [this](const std::string& id) {
        editor_.change([&](EventSetting& setting) { setting.soundId = id; });
    });
    auto* holder = new QWidget;
    QHBoxLayout* line = makeLine(holder, 12);
    line->addWidget(label);
    line->addWidget(sound_);
    return holder;
}

QWidget* AlertStrip::makeOptions()
{
    banner_ = new QCheckBox(editor_.words()(texts::showBanner));
    banner_->setAccessibleName(editor_.named(texts::bannerOf));
    connect(banner_, &QCheckBox::toggled, this,
            [this](bool isOn) { editor_.change([&](EventSetting& setting) { setting.showPopup = isOn; }); });
    speak_ = new QCheckBox(editor_.words()(texts::speak));
    speak_->setAccessibleName(editor_.named(texts::speakOf));
    speak_->setToolTip(editor_.words()(texts::speakTooltip));
    speak_->setAccessibleDescription(editor_.words()(texts::speakTooltip));
    connect(speak_, &QCheckBox::toggled, this,
            [this](bool isOn) { editor_.change([&](EventSetting& setting) { setting.speak = isOn; }); });
    auto* holder = new QWidget;
    QHBoxLayout* line = makeLine(holder, 18);
    line->addWidget(banner_);
    line->addWidget(speak_);
    return holder;
}

void AlertStrip::show(const EventSetting& setting)
{
    sound_->show(setting.soundId);
    preview_->setEnabled(canPreview(setting));
    showChecked(*banner_, setting.showPopup);
    showChecked(*speak_, setting.speak);
}

}
