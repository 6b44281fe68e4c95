// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/picker.h"
#include "ui/words.h"

#include <string>
#include <string_view>

namespace chimewell {

/// A choice among all sounds and silence.
class SoundPicker final : public Picker {
    Q_OBJECT
public:
    SoundPicker(const Words& words, const QString& name, QWidget* parent = nullptr);

    /// Nothing is chosen where there is no such sound. Tells nobody.
    void show(std::string_view soundId);

Q_SIGNALS:
    /// By the user.
    void soundChosen(const std::string& soundId);
};

}
