// SPDX-License-Identifier: MIT
#import <Foundation/Foundation.h>

#include "runtime/classes.h"
#include "runtime/objects.h"

using namespace chimewell::objc;

namespace {

Object* plain(id object)
{
    return (__bridge Object*)object;
}

const chimewell::objc::Class* plain(::Class type)
{
    return (__bridge const chimewell::objc::Class*)type;
}

}

@interface NSObject (Copying)
- (id)copyWithZone:(struct _NSZone*)zone;
@end

@implementation NSObject

+ (instancetype)alloc
{
    return (__bridge_transfer id)createInstance((__bridge chimewell::objc::Class*)self);
}

+ (instancetype)new
{
    return [[self alloc] init];
}

+ (::Class)class
{
    return self;
}

- (instancetype)init
{
    return self;
}

- (void)dealloc
{
    destroyInstance(plain(self));
}

- (id)copy
{
    return [self copyWithZone:nil];
}

- (NSUInteger)hash
{
    return reinterpret_cast<NSUInteger>(plain(self));
}

- (NSString*)description
{
    return @"an object";
}

- (BOOL)isEqual:(id)object
{
    return self == object;
}

- (BOOL)isKindOfClass:(::Class)wanted
{
    for (const chimewell::objc::Class* type = plain(self)->isa; type; type = type->superclass)
        if (type == plain(wanted)) return YES;
    return NO;
}

- (BOOL)respondsToSelector:(SEL)name
{
    return findMethod(plain(self)->isa, reinterpret_cast<Selector>(name)) != nullptr;
}

@end

/// Blocks are objects, so that collections and properties can hold them.
@interface NSBlock : NSObject
@end

extern "C" void* objc_retainBlock(void* block);

@implementation NSBlock
- (id)copy
{
    return (__bridge_transfer id)objc_retainBlock((__bridge void*)self);
}
@end

// The compiler gives blocks on the stack and blocks that capture nothing classes of these names; the heap's
// is our own. One class serves all three.
asm(R"(
.globl _NSConcreteStackBlock
.globl _NSConcreteGlobalBlock
.globl chimewell_heap_block_class
.set _NSConcreteStackBlock, "OBJC_CLASS_$_NSBlock"
.set _NSConcreteGlobalBlock, "OBJC_CLASS_$_NSBlock"
.set chimewell_heap_block_class, "OBJC_CLASS_$_NSBlock"
)");
