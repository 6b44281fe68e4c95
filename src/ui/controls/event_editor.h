// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "ui/look/words.h"

#include <functional>

class QAbstractButton;
class QCheckBox;
class QPushButton;

namespace chimewell {

class SoundPicker;

/// One event's setting, with the controls that change it in every window. The controls call the services,
/// which outlive them.
class EventEditor {
public:
    EventEditor(Services& services, CanonicalEvent event);

    CanonicalEvent event() const { return event_; }
    /// Null where none is stored; `change` then does nothing.
    const EventSetting* stored() const { return services_.store.settings().setting(event_); }
    void change(const std::function<void(EventSetting&)>& change) const;

    const Words& words() const { return words_; }
    QString eventName() const { return words_(displayName(event_)); }
    /// `text` with the event's name in it, for screen readers: each row has the same controls.
    QString named(const Text& text) const { return words_({text, {displayName(event_)}}); }

    /// Lets the checkable `button` change that field.
    void connectToggle(const QAbstractButton& button, bool EventSetting::* field) const;
    /// Lets `button` play the event's sound and phrase.
    void connectPreview(QAbstractButton& button) const;
    SoundPicker* makeSoundPicker() const;
    QPushButton* makePreview() const;
    QCheckBox* makeCheckBox(bool EventSetting::* field, const Text& text, const Text& name) const;

private:
    Services& services_;
    Words words_;
    CanonicalEvent event_;
};

/// Emits no signal.
void showChecked(QAbstractButton& button, bool isChecked);

}
