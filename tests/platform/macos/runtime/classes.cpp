// SPDX-License-Identifier: MIT
#include "runtime/classes.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unordered_set>

// The compiler lists classes, categories and the selectors that code uses in sections of these names, and
// the linker marks where each section begins and ends.
extern "C" {
using namespace chimewell::objc;
extern Class* __start_objc_classlist[];
extern Class* __stop_objc_classlist[];
[[gnu::weak]] extern Category* __start_objc_catlist[];
[[gnu::weak]] extern Category* __stop_objc_catlist[];
extern Selector __start_objc_selrefs[];
extern Selector __stop_objc_selrefs[];
void* _objc_empty_cache; // what an unregistered class points to
}

namespace chimewell::objc {

namespace {

std::vector<Class*>& classes()
{
    static auto& all = *new std::vector<Class*>;
    return all;
}

void addMethods(Class& type, EntryList<Method>* methods)
{
    if (!methods) return;
    for (const Method& method : *methods)
        type.record->methods.insert_or_assign(selectorNamed(method.name), method.implementation);
}

void addMembers(Class& type)
{
    type.record = new ClassRecord;
    addMethods(type, type.data->methods);
}

// The declaration that the compiler saw may name fewer variables than the superclass really has.
void layOut(Class& type)
{
    if (type.record->laidOut) return;
    type.record->laidOut = true;
    if (!type.superclass) {
        // The compiler takes the root class for as large as it was declared, once and for all.
        if (type.data->instanceSize >= sizeof(Object)) return;
        std::fprintf(stderr, "%s is declared without its instance variable isa\n", type.data->name);
        std::abort();
    }
    layOut(*type.superclass);
    type.record->immortal |= type.superclass->record->immortal;
    type.record->isBlock |= type.superclass->record->isBlock;

    const std::uint32_t superclassSize = type.superclass->data->instanceSize;
    if (superclassSize <= type.data->instanceStart) return;
    std::uint32_t alignment = 8;
    if (type.data->variables)
        for (const InstanceVariable& variable : *type.data->variables)
            alignment = std::max(alignment, 1U << variable.alignmentLog2);
    const std::uint32_t moved =
        (superclassSize - type.data->instanceStart + alignment - 1) / alignment * alignment;
    if (type.data->variables)
        for (const InstanceVariable& variable : *type.data->variables)
            *variable.offset += moved;
    type.data->instanceStart += moved;
    type.data->instanceSize += moved;
}

[[gnu::constructor(101)]] void registerProgram() // before any initialiser that could send a message
{
    for (Selector* use = __start_objc_selrefs; use != __stop_objc_selrefs; ++use)
        *use = selectorNamed(*use);
    for (Class** listed = __start_objc_classlist; listed != __stop_objc_classlist; ++listed) {
        Class& type = **listed;
        addMembers(type);
        addMembers(*type.isa);
        type.record->immortal = std::strcmp(type.data->name, "NSConstantString") == 0;
        type.record->isBlock = std::strcmp(type.data->name, "NSBlock") == 0;
        classes().push_back(&type);
    }
    for (Category** listed = __start_objc_catlist; listed != __stop_objc_catlist; ++listed) {
        const Category& category = **listed;
        addMethods(*category.extended, category.instanceMethods);
        addMethods(*category.extended->isa, category.classMethods);
    }
    for (Class* type : classes())
        layOut(*type);
}

}

Selector selectorNamed(std::string_view name)
{
    static auto& names = *new std::unordered_set<std::string>;
    return names.emplace(name).first->c_str();
}

Implementation findMethod(const Class* type, Selector name)
{
    for (; type; type = type->superclass)
        if (const auto found = type->record->methods.find(name); found != type->record->methods.end())
            return found->second;
    return nullptr;
}

const std::vector<Class*>& registeredClasses()
{
    return classes();
}

}
