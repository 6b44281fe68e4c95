// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"

#include <QObject>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

class QCheckBox;
class QPushButton;

namespace chimewell {

class Field;
class Fold;
class IconButton;
class Picker;
class SoundPicker;
class SwitchButton;
class TextLabel;

/// One event's setting, to be shown and changed by the controls of its row.
class EventSettingEditor {
public:
    EventSettingEditor(Services& services, CanonicalEvent event)
        : services_(services),
          words_(services.ports.translator),
          event_(event)
    {
    }

    EventSetting setting() const
    {
        const EventSetting* stored = services_.store.settings().setting(event_);
        return stored ? *stored : EventSetting::defaultSetting(event_);
    }
    void change(const std::function<void(EventSetting&)>& change) const
    {
        services_.actions.changeEvent(event_, change);
    }
    void preview() const { services_.actions.preview(event_); }

    CanonicalEvent event() const { return event_; }
    const Words& words() const { return words_; }
    /// The event's own name in `text`, for those who hear a control and do not see its row.
    QString named(Text text) const { return words()({text, {displayName(event_)}}); }

private:
    Services& services_;
    const Words words_;
    CanonicalEvent event_;
};

/// The voices that can be chosen. The speech service is asked once, when somebody first wants to know.
class VoiceList final : public QObject {
    Q_OBJECT
public:
    explicit VoiceList(Services& services, QObject* parent = nullptr);

    void ask();
    /// None before the service answered.
    const std::vector<Voice>& voices() const { return voices_; }

Q_SIGNALS:
    void changed();

private:
    Services& services_;
    std::vector<Voice> voices_;
    bool isAsked_ = false;
};

/// What an event is and whether it alerts. A click anywhere but on the switch opens and closes what is below.
class EventHeader final : public QWidget {
    Q_OBJECT
public:
    explicit EventHeader(const EventSettingEditor& editor, QWidget* parent = nullptr);

    void showEnabled(bool isEnabled);
    void showOpen(bool isOpen);

Q_SIGNALS:
    /// By the user.
    void enabledChanged(bool isEnabled);
    void openChanged(bool isOpen);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    IconButton* arrow_;
    TextLabel* enabled_;
    SwitchButton* switch_;
};

/// How an event alerts: its sound, with a button to hear it, and whether there is a banner and a voice.
class AlertStrip final : public QWidget {
    Q_OBJECT
public:
    explicit AlertStrip(const EventSettingEditor& editor, QWidget* parent = nullptr);

    void show(const EventSetting& setting);

private:
    QWidget* makeSound();
    QWidget* makeOptions();

    const EventSettingEditor editor_;
    SoundPicker* sound_ = nullptr;
    QPushButton* preview_;
    QCheckBox* banner_ = nullptr;
    QCheckBox* speak_ = nullptr;
};

/// What is said at an event, and by whom.
class SpokenOptions final : public QWidget {
    Q_OBJECT
public:
    /// `voices` outlives this.
    SpokenOptions(const EventSettingEditor& editor, VoiceList& voices, QWidget* parent = nullptr);

    void show(const EventSetting& setting);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makePhrase();
    QWidget* makeVoice();
    void showVoices();

    const EventSettingEditor editor_;
    VoiceList& voices_;
    Field* phrase_ = nullptr;
    Picker* voice_ = nullptr;
    std::vector<Voice> choices_; ///< Of the picker, after the default.
};

/// One event in the settings. Follows the settings, wherever they are changed.
class EventRow final : public QWidget {
    Q_OBJECT
public:
    /// `voices` outlives this.
    EventRow(Services& services, CanonicalEvent event, VoiceList& voices, QWidget* parent = nullptr);

private:
    void setOpen(bool isOpen);
    void showSetting();

    const EventSettingEditor editor_;
    EventHeader* header_;
    AlertStrip* strip_;
    SpokenOptions* spoken_;
    Fold* whenSpoken_;
    Fold* options_;
    bool wasEnabled_ = false;
    Subscription storeChange_;
};

}
