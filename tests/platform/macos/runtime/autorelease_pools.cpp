// SPDX-License-Identifier: MIT
#include "runtime/abi.h"
#include "runtime/objects.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace chimewell::objc;

extern "C" Object* objc_retain(Object*);
extern "C" void objc_release(Object*);

namespace {

/// The pools of one thread, one on top of the other.
struct Pools {
    std::vector<Object*> objects;
    std::size_t open = 0;
};

thread_local Pools pools;

}

extern "C" {

/// What it returns marks where the new pool begins; plus one, as null would be no pool.
void* objc_autoreleasePoolPush()
{
    ++pools.open;
    return reinterpret_cast<void*>(pools.objects.size() + 1);
}

void objc_autoreleasePoolPop(void* pool)
{
    const std::size_t begin = reinterpret_cast<std::size_t>(pool) - 1;
    while (pools.objects.size() > begin) {
        Object* const last = pools.objects.back();
        pools.objects.pop_back();
        objc_release(last);
    }
    --pools.open;
}

Object* objc_autorelease(Object* object)
{
    if (!object) return nullptr;
    if (pools.open == 0) { // on a Mac this object would never be released
        std::fprintf(stderr, "%s autoreleased with no pool in place\n", object->isa->data->name);
        std::abort();
    }
    pools.objects.push_back(object);
    return object;
}

// Apple's runtime lets a returned object skip the pool when caller and callee agree to. It never has to.

Object* objc_autoreleaseReturnValue(Object* object)
{
    return objc_autorelease(object);
}

Object* objc_retainAutorelease(Object* object)
{
    return objc_autorelease(objc_retain(object));
}

Object* objc_retainAutoreleaseReturnValue(Object* object)
{
    return objc_retainAutorelease(object);
}

Object* objc_retainAutoreleasedReturnValue(Object* object)
{
    return objc_retain(object);
}

Object* objc_claimAutoreleasedReturnValue(Object* object)
{
    return objc_retain(object);
}

Object* objc_unsafeClaimAutoreleasedReturnValue(Object* object)
{
    return object;
}
}
