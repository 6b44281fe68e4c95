// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/abi.h"

namespace chimewell::objc {

/// A new instance, owned by the caller, its C++ variables constructed.
Object* createInstance(Class* type);
/// Ends an instance whose last reference has gone: weak references to it become nil.
void destroyInstance(Object* object);

/// True when references to `object` are counted in front of it, which is so for neither classes, constants,
/// protocols nor blocks.
bool isCounted(const Object* object);
/// Takes a reference unless the last one has gone.
bool retainIfAlive(Object* object);

/// Weak references to `object` become nil.
void clearWeakReferences(Object* object);

/// A send of the method of that name, which takes no argument and returns an object or nothing.
Object* send(Object* receiver, Selector name);

}
