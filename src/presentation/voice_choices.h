// SPDX-License-Identifier: MIT
#pragma once

#include "values/voice.h"

#include <optional>
#include <string>
#include <vector>

namespace chimewell {

/// What a picker of voices offers after "System default": the voices that there are, and the stored one by
/// its identifier when it is not among them, so that showing it does not lose it.
std::vector<Voice> voiceChoices(std::vector<Voice> voices, const std::optional<std::string>& stored);

}
