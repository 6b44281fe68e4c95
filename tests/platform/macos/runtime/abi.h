// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <unordered_map>

/// What clang writes for `-fobjc-runtime=macosx`, as this runtime reads it. The compiler knows no other
/// description of these layouts than its own code, so each says what it was seen to emit.
namespace chimewell::objc {

struct Class;

/// A method's name. Every name exists once, so that comparing pointers is comparing names.
using Selector = const char*;
using Implementation = void (*)();

/// Every object begins with its class; a class is an object too, of its metaclass.
struct Object {
    Class* isa;
};

struct Method {
    Selector name;
    const char* types;
    Implementation implementation;
};

/// Lists carry the size of one entry, the number of entries and then the entries.
template<typename Entry>
struct EntryList {
    std::uint32_t entrySize;
    std::uint32_t count;
    Entry* begin() { return reinterpret_cast<Entry*>(this + 1); }
    Entry* end() { return begin() + count; }
};

/// Code reads an instance variable's place through `offset`, so that a superclass may grow.
struct InstanceVariable {
    std::int64_t* offset;
    const char* name;
    const char* type;
    std::uint32_t alignmentLog2;
    std::uint32_t size;
};

/// What the compiler knows of a class. Instance start and size presume the superclass it saw declared.
struct ClassData {
    std::uint32_t flags;
    std::uint32_t instanceStart;
    std::uint32_t instanceSize;
    std::uint32_t reserved;
    const void* strongLayout;
    const char* name;
    EntryList<Method>* methods;
    const void* protocols;
    EntryList<InstanceVariable>* variables;
    const void* weakLayout;
    void* properties;
};

inline constexpr std::uint32_t metaclassFlag = 1;

/// What the runtime adds to a class. It hangs where Apple's runtime keeps its method cache.
struct ClassRecord {
    std::unordered_map<Selector, Implementation> methods;
    std::atomic<long> liveInstances = 0;
    bool immortal = false; ///< Its instances are constants of the program.
    bool isBlock = false;
    bool laidOut = false;
};

struct Class {
    Class* isa;
    Class* superclass;
    ClassRecord* record;
    void* virtualTable;
    ClassData* data;
};

struct Category {
    const char* name;
    Class* extended;
    EntryList<Method>* instanceMethods;
    EntryList<Method>* classMethods;
    const void* protocols;
};

inline bool isMetaclass(const Class& type)
{
    return (type.data->flags & metaclassFlag) != 0;
}

}
