// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "ui/interface_services.h"
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
    SoundChooserRow(const InterfaceServices& services, CanonicalEvent event, QWidget* parent = nullptr);

    /// The event's name; rows below one another give theirs the same width.
    TextLabel* name() const { return name_; }

private:
    QWidget* makeControls();
    void showSetting();
    void update(const std::function<void(EventSetting&)>& change);

    const InterfaceServices& services_;
    CanonicalEvent event_;
    TextLabel* name_;
    SoundPicker* sound_;
    QPushButton* preview_;
    QCheckBox* readAloud_;
    Subscription subscription_;
};

}
