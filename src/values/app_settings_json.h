// SPDX-License-Identifier: MIT
#pragma once

#include "values/app_settings.h"

#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// The settings of a file, or nothing where it is not ours to read: no JSON, a value of the wrong
/// type, an event that does not exist. Missing keys take their defaults and unknown ones are
/// ignored, so that the file of an older or a newer build loads; not normalized.
std::optional<AppSettings> decodeSettings(std::string_view json);

/// Pretty-printed JSON with the keys in alphabetical order. Absent optional fields are left out.
std::string encodeSettings(const AppSettings& settings);

}
