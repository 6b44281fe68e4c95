// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

namespace chimewell::objc {

/// How many objects of each class there are, blocks among them; constants of the program are not counted.
std::map<std::string, long> liveObjects();

/// An autorelease pool of the current thread.
class AutoreleasePool {
public:
    AutoreleasePool();
    ~AutoreleasePool();
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;

private:
    void* pool_;
};

}
