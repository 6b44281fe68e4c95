// SPDX-License-Identifier: MIT
#include "runtime/abi.h"
#include "runtime/objects.h"

#include <map>
#include <mutex>
#include <set>

using namespace chimewell::objc;

extern "C" Object* objc_autorelease(Object*);

namespace {

// One lock for all: a reference is read and an object ends on one thread at a time.
std::mutex& lock()
{
    static auto& mutex = *new std::mutex;
    return mutex;
}

std::map<const Object*, std::set<Object**>>& references()
{
    static auto& all = *new std::map<const Object*, std::set<Object**>>;
    return all;
}

void forget(Object** place)
{
    if (!*place) return;
    const auto found = references().find(*place);
    if (found == references().end()) return;
    found->second.erase(place);
    if (found->second.empty()) references().erase(found);
}

void remember(Object** place, Object* object)
{
    *place = object;
    if (!isCounted(object)) return; // it never ends (and blocks are not referenced weakly here)
    references()[object].insert(place);
}

}

namespace chimewell::objc {

void clearWeakReferences(Object* object)
{
    const std::scoped_lock locked(lock());
    const auto found = references().find(object);
    if (found == references().end()) return;
    for (Object** place : found->second)
        *place = nullptr;
    references().erase(found);
}

}

extern "C" {

Object* objc_storeWeak(Object** place, Object* object)
{
    const std::scoped_lock locked(lock());
    forget(place);
    remember(place, object);
    return object;
}

Object* objc_initWeak(Object** place, Object* object)
{
    *place = nullptr;
    return objc_storeWeak(place, object);
}

void objc_destroyWeak(Object** place)
{
    const std::scoped_lock locked(lock());
    forget(place);
}

/// The object with a reference for the caller, or nil when it is ending.
Object* objc_loadWeakRetained(Object** place)
{
    const std::scoped_lock locked(lock());
    Object* const object = *place;
    if (!isCounted(object)) return object;
    return retainIfAlive(object) ? object : nullptr;
}

Object* objc_loadWeak(Object** place)
{
    return objc_autorelease(objc_loadWeakRetained(place));
}

void objc_copyWeak(Object** to, Object** from)
{
    const std::scoped_lock locked(lock());
    remember(to, *from);
}

void objc_moveWeak(Object** to, Object** from)
{
    objc_copyWeak(to, from);
    objc_destroyWeak(from);
}
}
