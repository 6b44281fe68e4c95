// SPDX-License-Identifier: MIT
#include "fakes/apple_event_manager.h"

#include "fakes/main_thread.h"
#include "fakes/per_test.h"
#include "fakes/text.h"
#include "runtime/messages.h"

#import <Foundation/Foundation.h>

#include <map>
#include <utility>

using namespace chimewell::test::mac;

/// What a descriptor holds: an event, a text, a type code or an enumerated value.
@implementation NSAppleEventDescriptor {
@public
    AEEventClass eventClass_;
    AEEventID eventID_;
    OSType typeCode_;
    OSType enumCode_;
    NSString* string_;
    std::map<AEKeyword, NSAppleEventDescriptor*> parameters_;
    std::map<AEKeyword, NSAppleEventDescriptor*> attributes_;
}

- (instancetype)initWithEvent:(const AppleEvent&)event
{
    self = [super init];
    eventClass_ = event.eventClass;
    eventID_ = event.eventId;
    if (event.directObject) {
        NSAppleEventDescriptor* const object = [[NSAppleEventDescriptor alloc] init];
        object->string_ = text(*event.directObject);
        parameters_[keyDirectObject] = object;
    }
    if (event.quitReason) {
        NSAppleEventDescriptor* const reason = [[NSAppleEventDescriptor alloc] init];
        (event.reasonIsEnumeration ? reason->enumCode_ : reason->typeCode_) = *event.quitReason;
        (event.reasonIsAttribute ? attributes_ : parameters_)[kAEQuitReason] = reason;
    }
    return self;
}

- (OSType)enumCodeValue
{
    return enumCode_;
}

- (OSType)typeCodeValue
{
    return typeCode_;
}

- (NSString*)stringValue
{
    return string_;
}

- (AEEventClass)eventClass
{
    return eventClass_;
}

- (AEEventID)eventID
{
    return eventID_;
}

- (NSAppleEventDescriptor*)paramDescriptorForKeyword:(AEKeyword)keyword
{
    const auto found = parameters_.find(keyword);
    return found == parameters_.end() ? nil : found->second;
}

- (NSAppleEventDescriptor*)attributeDescriptorForKeyword:(AEKeyword)keyword
{
    const auto found = attributes_.find(keyword);
    return found == attributes_.end() ? nil : found->second;
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    return self;
}

@end

@interface ToolkitHandler : NSObject
- (void)ignore:(NSAppleEventDescriptor*)event reply:(NSAppleEventDescriptor*)reply;
@end

@implementation ToolkitHandler
- (void)ignore:(NSAppleEventDescriptor*)event reply:(NSAppleEventDescriptor*)reply
{
}
@end

namespace {

/// The manager does not retain its handlers.
struct Handler {
    __unsafe_unretained id object = nil;
    SEL selector = nullptr;
};

struct Manager {
    NSAppleEventManager* shared = [[NSAppleEventManager alloc] init];
    ToolkitHandler* toolkit = [[ToolkitHandler alloc] init];
    NSAppleEventDescriptor* current = nil;
    std::map<std::pair<AEEventClass, AEEventID>, Handler> handlers;

    std::string leftover() const
    {
        for (const auto& [event, handler] : handlers)
            if (handler.object != toolkit) return "a handler of Apple events";
        return "";
    }
};

PerTest<Manager> manager;

}

@implementation NSAppleEventManager

+ (NSAppleEventManager*)sharedAppleEventManager
{
    return manager->shared;
}

- (void)setEventHandler:(id)handler
            andSelector:(SEL)selector
          forEventClass:(AEEventClass)eventClass
             andEventID:(AEEventID)eventID
{
    manager->handlers[{eventClass, eventID}] = {handler, selector};
}

- (void)removeEventHandlerForEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID
{
    manager->handlers.erase({eventClass, eventID});
}

- (NSAppleEventDescriptor*)currentAppleEvent
{
    return manager->current;
}

@end

namespace chimewell::test::mac {

bool deliver(const AppleEvent& event)
{
    const auto found = manager->handlers.find({event.eventClass, event.eventId});
    if (found == manager->handlers.end()) return false;
    const Handler handler = found->second;
    whileHandling(event, [&] {
        NSAppleEventDescriptor* const reply = [[NSAppleEventDescriptor alloc] init];
        reinterpret_cast<void (*)(id, SEL, id, id)>(objc_msgSend)(handler.object, handler.selector,
                                                                  manager->current, reply);
    });
    return true;
}

void whileHandling(const AppleEvent& event, const std::function<void()>& body)
{
    requireMainThread("an Apple event");
    @autoreleasepool {
        manager->current = [[NSAppleEventDescriptor alloc] initWithEvent:event];
        body();
        manager->current = nil;
    }
}

void registerToolkitHandler(FourCharacters eventClass, FourCharacters eventId)
{
    [manager->shared setEventHandler:manager->toolkit
                         andSelector:@selector(ignore:reply:)
                       forEventClass:eventClass
                          andEventID:eventId];
}

}
