// SPDX-License-Identifier: MIT
#include "ui/onboarding/sounds_step.h"

#include "presentation/event_looks.h"
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/inputs.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/controls/text_label.h"
#include "ui/look/metrics.h"
#include "ui/look/symbol.h"
#include "values/texts.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

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

LaunchAtLoginRow::LaunchAtLoginRow(Services& services, QWidget* parent)
    : QWidget(parent),
      services_(services),
      words_(services.ports.translator),
      switch_(new SwitchButton(words_(texts::startAtLogin))),
      error_(new Note)
{
    auto* name = new TextLabel(TextStyle::body);
    name->setWrapping(true);
    name->setText(words_(texts::startAtLogin));
    auto* caption = new TextLabel(TextStyle::caption, Ink::secondary);
    caption->setWrapping(true);
    caption->setText(words_(texts::startAtLoginCaption));
    switch_->setAccessibleDescription(words_(texts::startAtLoginCaption));

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(directed(scaled(15), scaled(10), scaled(15) - ringRoom, scaled(10)));
    grid->setHorizontalSpacing(scaled(8));
    grid->setVerticalSpacing(scaled(2));
    grid->addWidget(new SymbolLabel("power", metrics::rowIcon, Tone::secondary), 0, 0);
    grid->addWidget(name, 0, 1);
    grid->addWidget(switch_, 0, 2);
    grid->addWidget(caption, 1, 1);
    grid->addWidget(error_, 2, 0, 1, 3);
    grid->setColumnStretch(1, 1);

    error_->setContentsMargins(0, scaled(4), 0, 0);
    error_->hide();
    connect(switch_, &QAbstractButton::toggled, this, [this](bool isOn) { set(isOn); });
    subscription_ = services_.store.onChange([this] { showSetting(); });
    showSetting();
}

void LaunchAtLoginRow::showSetting()
{
    switch_->show(services_.store.settings().launchAtLogin);
}

void LaunchAtLoginRow::set(bool wanted)
{
    const auto failure = services_.actions.setLaunchAtLogin(wanted);
    if (failure) error_->setNote("exclamationmark.triangle", Tone::red, words_(*failure));
    error_->setVisible(failure.has_value());
}

void LaunchAtLoginRow::mouseReleaseEvent(QMouseEvent* event)
{
    // The words are as good a place to click as the switch.
    if (event->button() == Qt::LeftButton && rect().contains(event->pos())) switch_->click();
}

SoundsStep::SoundsStep(Services& services, QWidget* parent) : QWidget(parent)
{
    auto* login = new Card;
    login->addRow(new LaunchAtLoginRow(services));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(12));
    layout->addWidget(makeSounds(services));
    layout->addWidget(login);
    layout->addWidget(makeClosingNote(Words(services.ports.translator)));
}

QWidget* SoundsStep::makeSounds(Services& services)
{
    auto* sounds = new Card;
    std::vector<SoundChooserRow*> rows;
    int width = 0;
    for (const CanonicalEvent event : quickEvents) {
        rows.push_back(new SoundChooserRow(services, event));
        sounds->addRow(rows.back(), 16);
        width = std::max(width, rows.back()->name()->sizeHint().width());
    }
    for (SoundChooserRow* row : rows)
        row->name()->setMinimumWidth(width);
    return sounds;
}

QWidget* SoundsStep::makeClosingNote(const Words& words)
{
    auto* note = new Note(TextStyle::subheadline, Ink::secondary);
    note->setNote("bell.badge", Tone::accent, {});
    note->label()->setMarkedText(words(texts::closingNote));
    note->setContentsMargins(scaled(16), 0, scaled(16), 0); // as the text in the cards
    return note;
}

}
