// SPDX-License-Identifier: MIT
#include "presentation/event_looks.h"
#include "presentation/settings_model.h"
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/inputs.h"
#include "ui/controls/layouts.h"
#include "ui/controls/text_label.h"
#include "ui/settings/event_row.h"
#include "ui/settings/pane.h"
#include "values/texts.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double pickerWidth = 140;

/// A stepper and the sentence that tells its number.
struct SentenceRow {
    SentenceRow(int maximum, const std::function<void(int)>& changed)
        : stepper(new Stepper(QString())),
          row(new SettingRow(QString(), stepper))
    {
        stepper->setRange(1, maximum);
        QObject::connect(stepper, &QSpinBox::valueChanged, stepper, changed);
    }
    void show(const QString& sentence, std::int64_t value) const
    {
        const QSignalBlocker silence(stepper);
        stepper->setValue(
            static_cast<int>(std::clamp<std::int64_t>(value, stepper->minimum(), stepper->maximum())));
        stepper->setAccessibleName(sentence);
        row->label()->setText(sentence);
    }

    Stepper* stepper;
    SettingRow* row;
};

/// Which events alert and how, and how often a waiting agent is mentioned again.
class EventsPane final : public PaneColumn {
public:
    explicit EventsPane(Services& services);

private:
    void addReminders();
    QWidget* makeInterval();
    void showReminders();
    void showCustom(bool isCustom);

    Services& services_;
    const Words words_;
    SwitchRow* remindersEnabled_ = nullptr;
    Picker* interval_ = nullptr;
    QPushButton* custom_ = nullptr;
    const SentenceRow minutes_;
    const SentenceRow count_;
    bool isCustom_ = false; ///< The interval is edited in minutes and not picked.
    Subscription storeChange_;
};

EventsPane::EventsPane(Services& services)
    : services_(services),
      words_(services.ports.translator),
      minutes_(static_cast<int>(maxReminderMinutes),
               [this](int minutes) { services_.actions.setReminderInterval(storedSeconds(minutes)); }),
      count_(static_cast<int>(maxReminderCount),
             [this](int count) { services_.actions.setReminderCount(count); })
{
    addIntro(words_(texts::eventsIntro));
    auto* voices = new VoiceList(services, this);
    Card* card = addCard();
    for (const CanonicalEvent event : configurableEvents)
        card->addRow(makeEventRow(services, event, *voices), afterSymbol);
    addReminders();
    finish();
    storeChange_ = services_.store.onChange([this] { showReminders(); });
    showReminders();
}

void EventsPane::addReminders()
{
    remindersEnabled_ = new SwitchRow(words_(texts::keepReminding), words_(texts::keepRemindingCaption));
    connect(&remindersEnabled_->control(), &QAbstractButton::toggled, this,
            [this](bool isOn) { services_.actions.setRemindersEnabled(isOn); });
    addHeading(words_(texts::reminders));
    Card* card = addCard();
    card->addRow(remindersEnabled_, cardEdge);
    card->addRow(makeInterval(), cardEdge);
    card->addRow(minutes_.row, cardEdge);
    card->addRow(count_.row, cardEdge);
}

QWidget* EventsPane::makeInterval()
{
    const QString name = words_(texts::repeatEvery);
    custom_ = new QPushButton(words_(texts::custom));
    connect(custom_, &QPushButton::clicked, this, [this] {
        showCustom(true);
        minutes_.stepper->setFocus(); // the button is hidden now
    });
    interval_ = new Picker(name);
    interval_->setMinimumWidth(scaled(pickerWidth));
    interval_->setPlaceholderText(words_(texts::custom));
    for (const ReminderPreset& preset : reminderPresets)
        interval_->addItem(words_(preset.label));
    connect(interval_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index < 0) return;
        isCustom_ = false;
        services_.actions.setReminderInterval(reminderPresets[static_cast<std::size_t>(index)].seconds);
    });
    auto* controls = new QWidget;
    auto* line = makeLine(controls, 8);
    line->addWidget(custom_);
    line->addWidget(interval_);
    return new SettingRow(name, controls);
}

void EventsPane::showReminders()
{
    const AppSettings& settings = services_.store.settings();
    remindersEnabled_->control().show(settings.remindersEnabled);
    const std::int64_t minutes = shownMinutes(settings.reminderIntervalSeconds);
    minutes_.show(words_({texts::everyMinutes, minutes}), minutes);
    count_.show(words_({texts::upToReminders, settings.reminderMaxCount}), settings.reminderMaxCount);
    showCustom(isCustom_ || !reminderPreset(settings.reminderIntervalSeconds));
}

void EventsPane::showCustom(bool isCustom)
{
    isCustom_ = isCustom;
    const auto preset = reminderPreset(services_.store.settings().reminderIntervalSeconds);
    const QSignalBlocker silence(interval_);
    interval_->setCurrentIndex(isCustom || !preset ? -1 : static_cast<int>(*preset));
    custom_->setVisible(!isCustom);
    minutes_.row->setVisible(isCustom);
}

}

PaneColumn* makeEventsPane(Services& services)
{
    return new EventsPane(services);
}

}
