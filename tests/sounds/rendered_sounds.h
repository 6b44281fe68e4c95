// SPDX-License-Identifier: MIT
#pragma once

#include "recipe.h"
#include "spectrum.h"

#include <map>
#include <string>
#include <vector>

namespace chimewell::test {

/// The recipes as they are in the source tree.
const RecipeBook& recipeBook();

/// What the tool has written, by name without ending: every file of its folder, whole.
std::map<std::string, std::string> renderedFiles();

/// The samples of every rendered file, read once.
const std::map<std::string, Signal>& renderedSounds();

}
