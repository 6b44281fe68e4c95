// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/abi.h"

#include <string_view>
#include <vector>

namespace chimewell::objc {

/// The one selector of that name.
Selector selectorNamed(std::string_view name);

/// The method that instances of `type` run for `name`, their own or an inherited one; null without one.
Implementation findMethod(const Class* type, Selector name);

/// Every class of the program, metaclasses left out.
const std::vector<Class*>& registeredClasses();

}
