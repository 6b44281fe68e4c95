// SPDX-License-Identifier: MIT
#include "runtime/live_objects.h"

#include "runtime/classes.h"

extern "C" void* objc_autoreleasePoolPush();
extern "C" void objc_autoreleasePoolPop(void* pool);

namespace chimewell::objc {

std::map<std::string, long> liveObjects()
{
    std::map<std::string, long> result;
    for (const Class* type : registeredClasses())
        if (type->record->liveInstances != 0) result.emplace(type->data->name, type->record->liveInstances);
    return result;
}

AutoreleasePool::AutoreleasePool() : pool_(objc_autoreleasePoolPush()) {}

AutoreleasePool::~AutoreleasePool()
{
    objc_autoreleasePoolPop(pool_);
}

}
