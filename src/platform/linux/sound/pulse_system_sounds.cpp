// SPDX-License-Identifier: MIT
#include "platform/linux/sound/pulse_system_sounds.h"

#include "platform/linux/sound/pulse_connection.h"
#include "platform/linux/sound/pulse_sound.h"
#include "platform/linux/sound/wav_file.h"

#include <optional>
#include <utility>

namespace chimewell {

PulseSystemSounds::PulseSystemSounds(std::filesystem::path folder)
    : folder_(std::move(folder)),
      connection_(std::make_shared<PulseConnection>())
{
}

PulseSystemSounds::~PulseSystemSounds() = default;

std::unique_ptr<Sound> PulseSystemSounds::named(std::string_view name)
{
    auto known = files_.find(name);
    if (known == files_.end()) {
        if (name.find('/') != std::string_view::npos) return nullptr;
        std::optional<WavFile> file = readWavFile(folder_ / (std::string(name) + ".wav"));
        if (!file) return nullptr;
        known = files_.emplace(name, std::make_shared<const WavFile>(*std::move(file))).first;
    }
    return std::make_unique<PulseSound>(connection_, known->second);
}

}
