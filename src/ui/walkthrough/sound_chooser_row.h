// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ui/windows.h"
#include "ui/words.h"
#include "values/canonical_event.h"

#include <QWidget>

class QCheckBox;
class QPushButton;

namespace chimewell {

class SoundPicker;
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

}
