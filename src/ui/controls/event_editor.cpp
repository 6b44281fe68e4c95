// SPDX-License-Identifier: MIT
#include "ui/controls/event_editor.h"

#include "ui/controls/inputs.h"
#include "ui/look/symbol.h"
#include "values/texts.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSignalBlocker>

namespace chimewell {

EventEditor::EventEditor(Services& services, CanonicalEvent event)
    : services_(services),
      words_(services.ports.translator),
      event_(event)
{
}

void EventEditor::change(const std::function<void(EventSetting&)>& change) const
{
    services_.actions.changeEvent(event_, change);
}

void EventEditor::connectToggle(const QAbstractButton& button, bool EventSetting::* field) const
{
    QObject::connect(&button, &QAbstractButton::toggled, &button, [*this, field](bool isOn) {
        change([&](EventSetting& setting) { setting.*field = isOn; });
    });
}

void EventEditor::connectPreview(QAbstractButton& button) const
{
    button.setAccessibleName(named(texts::previewOf));
    QObject::connect(&button, &QAbstractButton::clicked, &button,
                     [*this] { services_.actions.preview(event_); });
}

SoundPicker* EventEditor::makeSoundPicker() const
{
    auto* picker = new SoundPicker(words_, named(texts::soundOf));
    QObject::connect(picker, &SoundPicker::soundChosen, picker, [*this](const std::string& id) {
        change([&](EventSetting& setting) { setting.soundId = id; });
    });
    return picker;
}

QPushButton* EventEditor::makePreview() const
{
    auto* button = new QPushButton(symbolIcon("play.circle"), words_(texts::preview));
    connectPreview(*button);
    return button;
}

QCheckBox* EventEditor::makeCheckBox(bool EventSetting::* field, const Text& text, const Text& name) const
{
    auto* box = new QCheckBox(words_(text));
    box->setAccessibleName(named(name));
    connectToggle(*box, field);
    return box;
}

void showChecked(QAbstractButton& button, bool isChecked)
{
    const QSignalBlocker silence(&button);
    button.setChecked(isChecked);
}

}
