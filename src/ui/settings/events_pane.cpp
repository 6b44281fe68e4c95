// SPDX-License-Identifier: MIT
#include "ui/settings/events_pane.h"

#include "presentation/event_looks.h"
#include "presentation/settings_model.h"
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/inputs.h"
#include "ui/controls/layouts.h"
#include "ui/controls/text_label.h"
#include "ui/settings/event_row.h"
#include "ui/settings/pane_column.h"
#include "values/texts.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double pickerWidth = 140;

/// A stepper and the sentence that it is part of.
void showSentence(Stepper& stepper, TextLabel& label, const QString& sentence, std::int64_t value)
{
    const QSignalBlocker silence(&stepper);
    stepper.setValue(static_cast<int>(std::clamp<std::int64_t>(value, stepper.minimum(), stepper.maximum())));
    stepper.setAccessibleName(sentence);
    label.setText(sentence);
}

}

RemindersSection::RemindersSection(Services& services, QWidget* parent)
    : QWidget(parent),
      services_(services),
      words_(services.ports.translator),
      enabled_(new SwitchRow(words_(texts::keepReminding), words_(texts::keepRemindingCaption)))
{
    auto* card = new Card;
    card->addRow(enabled_, cardEdge);
    card->addRow(makeInterval(), cardEdge);
    minutesRow_ = makeMinutes();
    card->addRow(minutesRow_, cardEdge);
    card->addRow(makeCount(), cardEdge);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);

    connect(enabled_->control(), &QAbstractButton::toggled, this,
            [this](bool isOn) { services_.actions.setRemindersEnabled(isOn); });
    storeChange_ = services_.store.onChange([this] { showSettings(); });
    showSettings();
}

QWidget* RemindersSection::makeInterval()
{
    const QString name = words_(texts::repeatEvery);
    custom_ = new QPushButton(words_(texts::custom));
    custom_->setAutoDefault(false);
    connect(custom_, &QPushButton::clicked, this, [this] {
        showCustom(true);
        minutes_->setFocus(); // the button is gone
    });
    interval_ = new Picker(name);
    interval_->setMinimumWidth(scaled(pickerWidth));
    interval_->setPlaceholderText(words_(texts::custom));
    for (const ReminderPreset& preset : reminderPresets)
        interval_->addItem(words_(preset.label));
    connect(interval_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index < 0) return;
        isCustom_ = false;
        const std::int64_t seconds = reminderPresets[static_cast<std::size_t>(index)].seconds;
        services_.actions.setReminderInterval(seconds);
    });
    auto* controls = new QWidget;
    auto* line = new QHBoxLayout(controls);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(scaled(8));
    line->addWidget(custom_);
    line->addWidget(interval_);
    return new SettingRow(name, controls);
}

QWidget* RemindersSection::makeMinutes()
{
    minutes_ = new Stepper(QString());
    minutes_->setRange(1, static_cast<int>(maxReminderMinutes));
    connect(minutes_, &QSpinBox::valueChanged, this,
            [this](int minutes) { services_.actions.setReminderInterval(storedSeconds(minutes)); });
    auto* row = new SettingRow(QString(), minutes_);
    minutesText_ = row->label();
    return row;
}

QWidget* RemindersSection::makeCount()
{
    count_ = new Stepper(QString());
    count_->setRange(1, static_cast<int>(maxReminderCount));
    connect(count_, &QSpinBox::valueChanged, this,
            [this](int count) { services_.actions.setReminderCount(count); });
    auto* row = new SettingRow(QString(), count_);
    countText_ = row->label();
    return row;
}

void RemindersSection::showSettings()
{
    const AppSettings& settings = services_.store.settings();
    enabled_->control()->show(settings.remindersEnabled);
    const std::int64_t minutes = shownMinutes(settings.reminderIntervalSeconds);
    showSentence(*minutes_, *minutesText_, words_({texts::everyMinutes, minutes}), minutes);
    showSentence(*count_, *countText_, words_({texts::upToReminders, settings.reminderMaxCount}),
                 settings.reminderMaxCount);
    showCustom(isCustom_ || !reminderPreset(settings.reminderIntervalSeconds));
}

void RemindersSection::showCustom(bool isCustom)
{
    isCustom_ = isCustom;
    const auto preset = reminderPreset(services_.store.settings().reminderIntervalSeconds);
    const QSignalBlocker silence(interval_);
    interval_->setCurrentIndex(isCustom || !preset ? -1 : static_cast<int>(*preset));
    custom_->setVisible(!isCustom);
    minutesRow_->setVisible(isCustom);
}

EventsPane::EventsPane(Services& services, QWidget* parent) : PaneColumn(parent)
{
    addIntro(Words(services.ports.translator)(texts::eventsIntro));
    auto* voices = new VoiceList(services, this);
    Card* card = addCard();
    for (const CanonicalEvent event : configurableEvents)
        card->addRow(new EventRow(services, event, *voices), afterSymbol);
    addHeading(Words(services.ports.translator)(texts::reminders));
    addSection(new RemindersSection(services));
    finish();
}

}
