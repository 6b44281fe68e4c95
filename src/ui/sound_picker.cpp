// SPDX-License-Identifier: MIT
#include "ui/sound_picker.h"

#include "values/sound_option.h"

#include <algorithm>

namespace chimewell {

SoundPicker::SoundPicker(const Words& words, const QString& name, QWidget* parent) : Picker(name, parent)
{
    for (const SoundOption& option : SoundOption::all())
        addItem(words(option.displayName));
    connect(this, &QComboBox::activated, this, [this](int index) {
        Q_EMIT soundChosen(SoundOption::all()[static_cast<std::size_t>(index)].id);
    });
}

void SoundPicker::show(std::string_view soundId)
{
    const auto& all = SoundOption::all();
    const auto found = std::ranges::find(all, soundId, &SoundOption::id);
    setCurrentIndex(found == all.end() ? -1 : static_cast<int>(found - all.begin()));
}

}
