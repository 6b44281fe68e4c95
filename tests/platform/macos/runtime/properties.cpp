// SPDX-License-Identifier: MIT
#include "runtime/abi.h"
#include "runtime/classes.h"
#include "runtime/objects.h"

#include <cstddef>
#include <cstring>
#include <mutex>
#include <utility>

using namespace chimewell::objc;

extern "C" Object* objc_retain(Object*);
extern "C" void objc_release(Object*);
extern "C" Object* objc_autorelease(Object*);

namespace {

// Atomic properties: no reader sees an object that a writer on another thread is just replacing.
std::mutex& lock()
{
    static auto& mutex = *new std::mutex;
    return mutex;
}

Object** placeOf(Object* owner, std::ptrdiff_t offset)
{
    return reinterpret_cast<Object**>(reinterpret_cast<char*>(owner) + offset);
}

Object* copyOf(Object* object)
{
    static const Selector copy = selectorNamed("copy");
    return object ? send(object, copy) : nullptr;
}

void store(Object** place, Object* owned)
{
    Object* before = nullptr;
    {
        const std::scoped_lock locked(lock());
        before = std::exchange(*place, owned);
    }
    objc_release(before);
}

}

extern "C" {

Object* objc_getProperty(Object* owner, Selector, std::ptrdiff_t offset, bool)
{
    Object* value = nullptr;
    {
        const std::scoped_lock locked(lock());
        value = objc_retain(*placeOf(owner, offset));
    }
    return objc_autorelease(value);
}

void objc_setProperty_atomic(Object* owner, Selector, Object* value, std::ptrdiff_t offset)
{
    store(placeOf(owner, offset), objc_retain(value));
}

void objc_setProperty_nonatomic(Object* owner, Selector, Object* value, std::ptrdiff_t offset)
{
    store(placeOf(owner, offset), objc_retain(value));
}

void objc_setProperty_atomic_copy(Object* owner, Selector, Object* value, std::ptrdiff_t offset)
{
    store(placeOf(owner, offset), copyOf(value));
}

void objc_setProperty_nonatomic_copy(Object* owner, Selector, Object* value, std::ptrdiff_t offset)
{
    store(placeOf(owner, offset), copyOf(value));
}

void objc_copyStruct(void* to, const void* from, std::ptrdiff_t size, bool, bool)
{
    const std::scoped_lock locked(lock());
    std::memcpy(to, from, static_cast<std::size_t>(size));
}
}
