// SPDX-License-Identifier: MIT
#include "ui/settings/event_row.h"

#include "presentation/event_looks.h"
#include "presentation/settings_model.h"
#include "ui/controls/accessibility.h"
#include "ui/controls/buttons.h"
#include "ui/controls/disclosure.h"
#include "ui/controls/event_editor.h"
#include "ui/controls/inputs.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "values/texts.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QGridLayout>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace chimewell {

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

namespace {

constexpr double headerHeight = 53, aboveAndBelow = 8; // including the hairline above
constexpr double soundWidth = 124, voiceWidth = 200;

/// What an event is and whether it alerts. A click beside the switch presses the arrow.
class EventHeader final : public QWidget {
public:
    explicit EventHeader(const EventEditor& editor);

    IconButton& arrow() { return *arrow_; }
    void show(bool isEnabled) { switch_->show(isEnabled); }
    void showOpen(bool isOpen);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    IconButton* arrow_;
    TextLabel* enabled_;
    SwitchButton* switch_;
};

EventHeader::EventHeader(const EventEditor& editor)
    : arrow_(new IconButton("chevron.right", editor.named(texts::optionsOf))),
      enabled_(new TextLabel(TextStyle::subheadline, Tone::secondary, editor.words()(texts::enabled))),
      switch_(new SwitchButton(editor.named(texts::enabledOf)))
{
    arrow_->setCheckable(true);
    editor.connectToggle(*switch_, &EventSetting::enabled);
    auto* texts = makeColumn(nullptr);
    texts->addWidget(makeParagraph(TextStyle::bodyMedium, Tone::neutral, editor.eventName()));
    texts->addWidget(
        makeParagraph(TextStyle::subheadline, Tone::secondary, editor.words()(description(editor.event()))));
    auto* layout = makeLine(this);
    // The arrow's button is wider than the column of symbols and has the same middle.
    const int around = (scaled(metrics::iconButton) - scaled(metrics::rowIcon)) / 2;
    layout->setContentsMargins(directed(inRow(cardEdge) - around, scaled(aboveAndBelow) + 1,
                                        inRow(cardEdge) - ringRoom, scaled(aboveAndBelow)));
    setMinimumHeight(scaled(headerHeight));
    layout->addWidget(arrow_);
    layout->addSpacing(inRow(afterSymbol) - inRow(cardEdge) + around - scaled(metrics::iconButton));
    layout->addLayout(texts, 1);
    layout->addSpacing(scaled(12));
    layout->addWidget(enabled_);
    layout->addSpacing(scaled(8) - ringRoom);
    layout->addWidget(switch_);
}

void EventHeader::showOpen(bool isOpen)
{
    showChecked(*arrow_, isOpen);
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

/// How an event alerts: its sound, with a button to hear it, and whether there is a banner and a voice.
class AlertStrip final : public QWidget {
public:
    explicit AlertStrip(const EventEditor& editor);

    void show(const EventSetting& setting);

private:
    SoundPicker* sound_;
    QPushButton* preview_;
    QCheckBox* banner_;
    QCheckBox* speak_;
};

AlertStrip::AlertStrip(const EventEditor& editor)
    : sound_(editor.makeSoundPicker()),
      preview_(editor.makePreview()),
      banner_(editor.makeCheckBox(&EventSetting::showPopup, texts::showBanner, texts::bannerOf)),
      speak_(editor.makeCheckBox(&EventSetting::speak, texts::speak, texts::speakOf))
{
    sound_->setMinimumWidth(scaled(soundWidth));
    setHelp(*speak_, editor.words()(texts::speakTooltip));
    auto* strip = new FlowLayout(scaled(8), FlowLayout::Last::trails, this);
    const auto add = [&](QWidget* first, QWidget* second, double spacing) {
        auto* holder = new QWidget;
        auto* line = makeLine(holder, spacing);
        line->addWidget(first);
        line->addWidget(second);
        strip->addWidget(holder);
    };
    add(new TextLabel(TextStyle::body, Tone::neutral, editor.words()(texts::sound)), sound_, 12);
    strip->addWidget(preview_);
    add(banner_, speak_, 18);
}

void AlertStrip::show(const EventSetting& setting)
{
    sound_->show(setting.soundId);
    preview_->setEnabled(canPreview(setting));
    showChecked(*banner_, setting.showPopup);
    showChecked(*speak_, setting.speak);
}

/// What is said at an event, and by whom.
class SpokenOptions final : public QWidget {
public:
    SpokenOptions(const EventEditor& editor, VoiceList& voices);

    void show(const EventSetting& setting);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makePhrase();
    QWidget* makeVoice();
    void showVoices();

    const EventEditor editor_;
    VoiceList& voices_;
    EventSetting shown_;
    Field* phrase_ = nullptr;
    Picker* voice_ = nullptr;
    std::vector<Voice> choices_; ///< Of the picker, after the default.
};

SpokenOptions::SpokenOptions(const EventEditor& editor, VoiceList& voices)
    : editor_(editor),
      voices_(voices),
      shown_(EventSetting::defaultSetting(editor.event()))
{
    auto* layout = makeColumn(this, 8);
    layout->setContentsMargins(directed(0, scaled(8), aroundCheckBox, 0));
    layout->addWidget(makePhrase());
    layout->addWidget(makeVoice());
    connect(&voices_, &VoiceList::changed, this, [this] { showVoices(); });
}

QWidget* SpokenOptions::makePhrase()
{
    const QString help = editor_.words()(texts::phraseHelp);
    phrase_ = new Field(editor_.named(texts::phraseOf));
    phrase_->setPlaceholderText(editor_.words()(defaultSpokenPhrase(editor_.event())));
    phrase_->setAccessibleDescription(help);
    connect(phrase_, &QLineEdit::editingFinished, this, [this] {
        const std::string phrase = phrase_->text().toStdString();
        phrase_->setModified(false);
        if (phrase == shown_.spokenPhrase) return;
        editor_.change([&](EventSetting& setting) { setting.spokenPhrase = phrase; });
    });
    auto* holder = new QWidget;
    auto* grid = new QGridLayout(holder);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(scaled(8));
    grid->setVerticalSpacing(scaled(4));
    grid->addWidget(new SymbolLabel("quote.bubble", metrics::rowIcon), 0, 0);
    grid->addWidget(phrase_, 0, 1);
    grid->addWidget(makeParagraph(TextStyle::caption, Tone::secondary, help), 1, 1);
    return holder;
}

QWidget* SpokenOptions::makeVoice()
{
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
    auto* line = makeLine(holder, 8);
    line->addWidget(new SymbolLabel("person.wave.2", metrics::rowIcon));
    auto* label = new TextLabel(TextStyle::body, Tone::neutral, editor_.words()(texts::voice));
    line->addLayout(new RowLayout(label, voice_), 1);
    return holder;
}

void SpokenOptions::show(const EventSetting& setting)
{
    shown_ = setting;
    phrase_->showText(qString(setting.spokenPhrase));
    showVoices();
}

void SpokenOptions::showVoices()
{
    const QSignalBlocker silence(voice_);
    if (auto choices = voiceChoices(voices_.voices(), shown_.voiceIdentifier); choices != choices_) {
        choices_ = std::move(choices);
        while (voice_->count() > 1)
            voice_->removeItem(voice_->count() - 1);
        for (const Voice& voice : choices_)
            voice_->addItem(qString(voice.name));
        voice_->view()->setMinimumWidth(voice_->view()->sizeHintForColumn(0));
    }
    const auto chosen = std::ranges::find(choices_, shown_.voiceIdentifier, &Voice::identifier);
    voice_->setCurrentIndex(chosen == choices_.end() ? 0 : static_cast<int>(chosen - choices_.begin()) + 1);
}

void SpokenOptions::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    voices_.ask();
}

class EventRow final : public QWidget {
public:
    EventRow(Services& services, CanonicalEvent event, VoiceList& voices);

private:
    void setOpen(bool isOpen);
    void showSetting();

    const EventEditor editor_;
    EventHeader* header_;
    AlertStrip* strip_;
    SpokenOptions* spoken_;
    Disclosure* whenSpoken_;
    Disclosure* options_;
    bool wasEnabled_ = false;
    Subscription storeChange_;
};

EventRow::EventRow(Services& services, CanonicalEvent event, VoiceList& voices)
    : editor_(services, event),
      header_(new EventHeader(editor_)),
      strip_(new AlertStrip(editor_)),
      spoken_(new SpokenOptions(editor_, voices)),
      whenSpoken_(new Disclosure(spoken_))
{
    auto* content = new QWidget;
    auto* inside = makeColumn(content);
    inside->setContentsMargins(
        directed(inRow(afterSymbol), scaled(4), inRow(cardEdge) - aroundCheckBox, scaled(14)));
    inside->addWidget(strip_);
    inside->addWidget(whenSpoken_);
    options_ = new Disclosure(content);
    auto* layout = makeColumn(this);
    layout->addWidget(header_);
    layout->addWidget(options_);

    connect(&header_->arrow(), &QAbstractButton::toggled, this, [this](bool isOpen) { setOpen(isOpen); });
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
    const EventSetting* stored = editor_.stored();
    const EventSetting setting = stored ? *stored : EventSetting::defaultSetting(editor_.event());
    header_->show(setting.enabled);
    // Switching an event on opens its options.
    if (setting.enabled && !wasEnabled_) setOpen(true);
    wasEnabled_ = setting.enabled;
    strip_->show(setting);
    spoken_->show(setting);
    whenSpoken_->setOpen(setting.speak);
}

}

QWidget* makeEventRow(Services& services, CanonicalEvent event, VoiceList& voices)
{
    return new EventRow(services, event, voices);
}

}
