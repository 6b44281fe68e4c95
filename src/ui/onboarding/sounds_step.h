// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"
#include "values/canonical_event.h"

#include <QWidget>

class QCheckBox;
class QPushButton;

namespace chimewell {

class Note;
class SoundPicker;
class SwitchButton;
class TextLabel;

/// What one event sounds like.
class SoundChooserRow final : public QWidget {
    Q_OBJECT
public:
    SoundChooserRow(Services& services, CanonicalEvent event, QWidget* parent = nullptr);

    /// The event's name; rows below one another give theirs the same width.
    TextLabel* name() const { return name_; }

private:
    QWidget* makeControls();
    void showSetting();
    void update(const std::function<void(EventSetting&)>& change);

    Services& services_;
    const Words words_;
    CanonicalEvent event_;
    TextLabel* name_;
    SoundPicker* sound_;
    QPushButton* preview_;
    QCheckBox* readAloud_;
    Subscription subscription_;
};

/// Whether the next session begins with us. Why that could not be changed is said below.
class LaunchAtLoginRow final : public QWidget {
    Q_OBJECT
public:
    explicit LaunchAtLoginRow(Services& services, QWidget* parent = nullptr);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void showSetting();
    void set(bool wanted);

    Services& services_;
    const Words words_;
    SwitchButton* switch_;
    Note* error_;
    Subscription subscription_;
};

/// What the two most important events sound like, and how we go on from here.
class SoundsStep final : public QWidget {
    Q_OBJECT
public:
    explicit SoundsStep(Services& services, QWidget* parent = nullptr);

private:
    QWidget* makeSounds(Services& services);
    QWidget* makeClosingNote(const Words& words);
};

}
