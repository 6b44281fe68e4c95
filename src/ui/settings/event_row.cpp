// SPDX-License-Identifier: MIT
#include "ui/settings/event_row.h"

#include "presentation/event_looks.h"
#include "presentation/settings_model.h"
#include "ui/controls/buttons.h"
#include "ui/controls/disclosure.h"
#include "ui/controls/inputs.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/controls/text_label.h"
#include "ui/look/symbol.h"
#include "values/texts.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace chimewell {

namespace {

constexpr double headerHeight = 53, aboveAndBelow = 8; // with the hairline above

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

constexpr double voiceWidth = 200;

}

VoiceList::VoiceList(Services& services, QObject* parent) : QObject(parent), services_(services) {}

void VoiceList::ask()
{
    if (std::exchange(isAsked_, true)) return;
    // The answer may come after the window was closed.
    services_.voice.listVoices([self = QPointer(this)](std::vector<Voice> voices) {
        if (!self) return;
        self->voices_ = std::move(voices);
        Q_EMIT self->changed();
    });
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

SpokenOptions::SpokenOptions(const EventSettingEditor& editor, VoiceList& voices, QWidget* parent)
    : QWidget(parent),
      editor_(editor),
      voices_(voices)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(directed(0, scaled(8), aroundCheckBox, 0));
    layout->setSpacing(scaled(8));
    layout->addWidget(makePhrase());
    layout->addWidget(makeVoice());
    connect(&voices_, &VoiceList::changed, this, [this] { showVoices(); });
}

QWidget* SpokenOptions::makePhrase()
{
    phrase_ = new Field(editor_.named(texts::phraseOf));
    phrase_->setPlaceholderText(editor_.words()(defaultSpokenPhrase(editor_.event())));
    phrase_->setAccessibleDescription(editor_.words()(texts::phraseHelp));
    connect(phrase_, &QLineEdit::editingFinished, this, [this] {
        const std::string phrase = phrase_->text().toStdString();
        phrase_->setModified(false);
        if (phrase == editor_.setting().spokenPhrase) return;
        editor_.change([&](EventSetting& setting) { setting.spokenPhrase = phrase; });
    });
    auto* help = new TextLabel(TextStyle::caption, Ink::secondary);
    help->setText(editor_.words()(texts::phraseHelp));
    help->setWrapping(true);

    auto* holder = new QWidget;
    auto* grid = new QGridLayout(holder);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(scaled(8));
    grid->setVerticalSpacing(scaled(4));
    grid->addWidget(new SymbolLabel("quote.bubble", metrics::rowIcon, Tone::secondary), 0, 0);
    grid->addWidget(phrase_, 0, 1);
    grid->addWidget(help, 1, 1);
    return holder;
}

QWidget* SpokenOptions::makeVoice()
{
    auto* label = new TextLabel(TextStyle::body);
    label->setText(editor_.words()(texts::voice));
    voice_ = new Picker(editor_.named(texts::voiceOf));
    // Names of voices can be longer than the row.
    voice_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    voice_->setMinimumContentsLength(1);
    voice_->setMinimumWidth(scaled(voiceWidth));
    voice_->addItem(editor_.words()(texts::systemDefault));
    connect(voice_, &QComboBox::currentIndexChanged, this, [this](int index) {
        std::optional<std::string> chosen;
        if (index > 0) chosen = choices_[static_cast<std::size_t>(index) - 1].identifier;
        editor_.change([&](EventSetting& setting) { setting.voiceIdentifier = chosen; });
    });

    auto* holder = new QWidget;
    auto* line = new QHBoxLayout(holder);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(scaled(8));
    line->addWidget(new SymbolLabel("person.wave.2", metrics::rowIcon, Tone::secondary));
    line->addLayout(new RowLayout(label, voice_), 1);
    return holder;
}

void SpokenOptions::show(const EventSetting& setting)
{
    phrase_->showText(qString(setting.spokenPhrase));
    showVoices();
}

void SpokenOptions::showVoices()
{
    const std::optional<std::string> stored = editor_.setting().voiceIdentifier;
    const QSignalBlocker silence(voice_);
    if (auto choices = voiceChoices(voices_.voices(), stored); choices != choices_) {
        choices_ = std::move(choices);
        while (voice_->count() > 1)
            voice_->removeItem(voice_->count() - 1);
        for (const Voice& voice : choices_)
            voice_->addItem(qString(voice.name));
        voice_->view()->setMinimumWidth(voice_->view()->sizeHintForColumn(0));
    }
    const auto chosen = std::ranges::find(choices_, stored, &Voice::identifier);
    voice_->setCurrentIndex(chosen == choices_.end() ? 0 : static_cast<int>(chosen - choices_.begin()) + 1);
}

void SpokenOptions::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    voices_.ask();
}

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
