// SPDX-License-Identifier: MIT
#include "presentation/event_looks.h"
#include "ui/controls/accessibility.h"
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/event_editor.h"
#include "ui/controls/inputs.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/look/symbol.h"
#include "ui/onboarding/onboarding_steps.h"
#include "values/texts.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace chimewell {

namespace {

/// What one event sounds like. Follows the stored settings.
class SoundRow final : public QWidget {
public:
    SoundRow(Services& services, CanonicalEvent event);

    /// The label with the event's name, which is as wide in all rows.
    TextLabel& name() const { return *name_; }

private:
    void showSetting();

    const EventEditor editor_;
    TextLabel* name_;
    SoundPicker* sound_;
    QPushButton* preview_;
    QCheckBox* readAloud_;
    Subscription subscription_;
};

SoundRow::SoundRow(Services& services, CanonicalEvent event)
    : editor_(services, event),
      name_(new TextLabel(TextStyle::bodyMedium, Tone::neutral, editor_.eventName())),
      sound_(editor_.makeSoundPicker()),
      preview_(editor_.makePreview()),
      readAloud_(editor_.makeCheckBox(&EventSetting::speak, texts::readAloud, texts::readAloudOf))
{
    readAloud_->setIcon(symbolIcon("speaker.wave.2.fill", Tone::secondary));
    setHelp(*readAloud_, editor_.words()(texts::readAloudHelp));
    auto* controls = new QWidget;
    auto* line = makeLine(controls, 8);
    line->addWidget(sound_);
    line->addWidget(preview_);
    line->addSpacing(scaled(6));
    line->addWidget(readAloud_);
    // The controls go below the name where the line is too short for both.
    auto* row = new FlowLayout(scaled(8), FlowLayout::Last::trails);
    row->addWidget(name_);
    row->addWidget(controls);
    auto* layout = makeColumn(this);
    layout->setContentsMargins(scaled(15), scaled(8), scaled(13),
                               scaled(8)); // a check box has its own margin
    layout->addLayout(row);
    subscription_ = services.store.onChange([this] { showSetting(); });
    showSetting();
}

void SoundRow::showSetting()
{
    const EventSetting* setting = editor_.stored();
    setEnabled(setting != nullptr);
    if (!setting) return;
    sound_->show(setting->soundId);
    preview_->setEnabled(canPreview(*setting));
    showChecked(*readAloud_, setting->speak);
}

QWidget* makeSounds(Services& services)
{
    auto* sounds = new Card;
    std::vector<SoundRow*> rows;
    int width = 0;
    for (const CanonicalEvent event : quickEvents) {
        rows.push_back(new SoundRow(services, event));
        sounds->addRow(rows.back(), 16);
        width = std::max(width, rows.back()->name().sizeHint().width());
    }
    for (const SoundRow* row : rows)
        row->name().setMinimumWidth(width);
    return sounds;
}

QWidget* makeClosingNote(const Words& words)
{
    auto* note = new Note(TextStyle::subheadline, Tone::secondary);
    note->setNote("bell.badge", Tone::accent, {});
    note->label()->setMarkedText(words(texts::closingNote));
    note->setContentsMargins(scaled(16), 0, scaled(16), 0); // aligned with the text in the cards
    return note;
}

/// What the two most important events sound like, whether we start at login, and where to go from here.
class SoundsStep final : public QWidget {
public:
    explicit SoundsStep(Services& services);

private:
    SwitchRow* login_;
    Subscription subscription_;
};

SoundsStep::SoundsStep(Services& services)
{
    const Words words(services.ports.translator);
    login_ = new SwitchRow(words(texts::startAtLogin), words(texts::startAtLoginCaption), "power");
    connect(&login_->control(), &QAbstractButton::toggled, this, [this, &services, words](bool isOn) {
        const auto failure = services.actions.setLaunchAtLogin(isOn);
        login_->showError(failure ? words(*failure) : QString());
    });
    const auto showLogin = [this, &services] {
        login_->control().show(services.store.settings().launchAtLogin);
    };
    subscription_ = services.store.onChange(showLogin);
    showLogin();

    auto* card = new Card;
    card->addRow(login_);
    auto* layout = makeColumn(this, 12);
    layout->addWidget(makeSounds(services));
    layout->addWidget(card);
    layout->addWidget(makeClosingNote(words));
}

}

QWidget* makeSoundsStep(Services& services)
{
    return new SoundsStep(services);
}

}
