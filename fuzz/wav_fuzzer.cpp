// SPDX-License-Identifier: MIT
// Whatever a sound file holds: what is accepted are whole frames within the file, and what our own tool
// writes is.
#include "fuzzing.h"
#include "platform/linux/sound/wav_file.h"
#include "wav.h"

#include <cstdint>
#include <cstring>
#include <vector>

namespace chimewell::fuzz {

void check(std::string_view bytes)
{
    if (const auto file = parseWavFile(bytes)) {
        require(file->channels == 1 || file->channels == 2);
        require(file->framesPerSecond >= 8'000 && file->framesPerSecond <= 192'000);
        require(!file->samples.empty() && file->samples.size() % (file->channels * 2U) == 0);
        require(bytes.contains(file->samples) && file->duration().count() > 0);
    }

    std::vector<std::int16_t> samples(bytes.size() / 2);
    if (samples.empty()) return;
    std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
    const auto own = parseWavFile(encodeWav(samples, 48000));
    require(own && own->channels == 1 && own->framesPerSecond == 48000 &&
            own->samples.size() == samples.size() * 2);
}

}
