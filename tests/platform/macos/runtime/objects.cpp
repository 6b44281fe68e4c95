// SPDX-License-Identifier: MIT
#include "runtime/objects.h"

#include "runtime/classes.h"

#include <cstdlib>
#include <limits>
#include <new>

using namespace chimewell::objc;

extern "C" Object* chimewell_retain_block(Object*);
extern "C" void _Block_release(Object*);

namespace chimewell::objc {

namespace {

/// Stands in front of every counted object.
struct alignas(16) Header {
    std::atomic<long> references = 1;
};

Header& header(Object* object)
{
    return reinterpret_cast<Header*>(object)[-1];
}

// A deallocating object may be retained and released by its own code without being deallocated twice.
constexpr long deallocating = std::numeric_limits<long>::min() / 2;

// The compiler collects the construction and destruction of C++ variables in methods of these names.
void construct(Object* object, const Class* type)
{
    static const Selector name = selectorNamed(".cxx_construct");
    if (!type) return;
    construct(object, type->superclass);
    if (const auto own = type->record->methods.find(name); own != type->record->methods.end())
        reinterpret_cast<Object* (*)(Object*, Selector)>(own->second)(object, name);
}

void destruct(Object* object)
{
    static const Selector name = selectorNamed(".cxx_destruct");
    for (const Class* type = object->isa; type; type = type->superclass)
        if (const auto own = type->record->methods.find(name); own != type->record->methods.end())
            reinterpret_cast<void (*)(Object*, Selector)>(own->second)(object, name);
}

}

Object* createInstance(Class* type)
{
    void* const memory = std::calloc(1, sizeof(Header) + type->data->instanceSize);
    new (memory) Header;
    auto* const object = reinterpret_cast<Object*>(static_cast<Header*>(memory) + 1);
    object->isa = type;
    ++type->record->liveInstances;
    construct(object, type);
    return object;
}

void destroyInstance(Object* object)
{
    clearWeakReferences(object);
    destruct(object);
    --object->isa->record->liveInstances;
    std::free(&header(object));
}

bool isCounted(const Object* object)
{
    if (!object || !object->isa) return false;
    const Class& type = *object->isa;
    return !isMetaclass(type) && !type.record->immortal && !type.record->isBlock;
}

bool retainIfAlive(Object* object)
{
    std::atomic<long>& references = header(object).references;
    for (long seen = references; seen > 0;)
        if (references.compare_exchange_weak(seen, seen + 1)) return true;
    return false;
}

Object* send(Object* receiver, Selector name)
{
    return reinterpret_cast<Object* (*)(Object*, Selector)>(findMethod(receiver->isa, name))(receiver, name);
}

}

// What ARC calls instead of sending `retain` and `release`.
extern "C" {

Object* objc_retain(Object* object)
{
    if (isCounted(object))
        ++header(object).references;
    else if (object && object->isa && object->isa->record->isBlock)
        return chimewell_retain_block(object);
    return object;
}

void objc_release(Object* object)
{
    static const Selector dealloc = selectorNamed("dealloc");
    if (isCounted(object)) {
        if (--header(object).references != 0) return;
        header(object).references = deallocating;
        send(object, dealloc);
    } else if (object && object->isa && object->isa->record->isBlock) {
        _Block_release(object);
    }
}

void objc_storeStrong(Object** place, Object* object)
{
    objc_retain(object);
    Object* const before = *place;
    *place = object;
    objc_release(before);
}

Object* objc_alloc(Class* type)
{
    return type ? createInstance(type) : nullptr;
}

Object* objc_allocWithZone(Class* type)
{
    return objc_alloc(type);
}

Object* objc_alloc_init(Class* type)
{
    static const Selector init = selectorNamed("init");
    return type ? send(objc_alloc(type), init) : nullptr;
}

Object* objc_opt_new(Class* type)
{
    return objc_alloc_init(type);
}

Object* objc_opt_self(Object* object)
{
    return object;
}

Class* objc_opt_class(Object* object)
{
    if (!object) return nullptr;
    return isMetaclass(*object->isa) ? reinterpret_cast<Class*>(object) : object->isa;
}

bool objc_opt_isKindOfClass(Object* object, const Class* wanted)
{
    for (const Class* type = object ? object->isa : nullptr; type; type = type->superclass)
        if (type == wanted) return true;
    return false;
}

bool objc_opt_respondsToSelector(Object* object, Selector name)
{
    return object && findMethod(object->isa, name);
}

void objc_enumerationMutation(Object*)
{
    std::abort(); // a collection changed while code walked through it
}
}
