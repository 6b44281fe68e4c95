// SPDX-License-Identifier: MIT
#include "ui/settings/spoken_options.h"

#include "presentation/settings_model.h"
#include "ui/controls/edges.h"
#include "ui/controls/field.h"
#include "ui/controls/picker.h"
#include "ui/controls/symbol_label.h"
#include "ui/controls/text_label.h"
#include "ui/settings/row_layout.h"
#include "ui/settings/voice_list.h"
#include "values/texts.h"

#include <QAbstractItemView>
#include <QGridLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace chimewell {

namespace {

constexpr double voiceWidth = 200;

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

}
