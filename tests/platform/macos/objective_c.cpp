// SPDX-License-Identifier: MIT
#include "objective_c.h"

#include "base/utf8.h"

#include <Block.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace chimewell::test::objc {

// What the compiler emits for a class that it compiles.

struct CompiledMethod {
    const char* name;
    const char* types;
    const void* address;
};

struct MethodList {
    std::uint32_t entrySize;
    std::uint32_t count;
    const CompiledMethod* begin() const { return reinterpret_cast<const CompiledMethod*>(this + 1); }
    const CompiledMethod* end() const { return begin() + count; }
};

struct ClassData {
    std::uint32_t flags;
    std::uint32_t instanceStart;
    std::uint32_t instanceSize;
    const void* unused[2];
    const MethodList* methods;
};
constexpr std::uint32_t isMetaclass = 1;

/// A class of a framework has neither a metaclass as its type nor data.
struct Class : Object {
    const Class* superclass;
    const void* unused[2];
    const ClassData* data;
};

/// The compiler's layout of a constant, used for all strings.
struct String : Object {
    std::uint64_t flags;
    const char* characters;
    std::uint64_t length;
};

namespace {

struct FrameworkObject : Object {
    std::map<std::string, Value> properties = {};
};

struct Observer {
    Value observation;
    Value center;
    std::string notification;
    void (^block)(Id);
};

std::vector<Observer> observers;
std::vector<void (^)()> mainQueue;
std::map<std::string, Value> sharedObjects;
std::map<std::string, Method> methods;

/// Memory for strings and instances of compiled classes, kept for good.
void* allocate(std::size_t size)
{
    static auto& all = *new std::vector<std::unique_ptr<std::byte[]>>;
    return all.emplace_back(std::make_unique<std::byte[]>(size)).get();
}

FrameworkObject* newObject(const Class* type)
{
    static auto& all = *new std::deque<FrameworkObject>;
    return &all.emplace_back(FrameworkObject{{type}});
}

std::map<std::string, Value>& propertiesOf(Id object)
{
    return static_cast<FrameworkObject*>(object)->properties;
}

Id allocateInstance(const Class* type)
{
    if (!type->data) return newObject(type);
    const Id object = static_cast<Id>(allocate(type->data->instanceSize));
    object->type = type;
    return object;
}

Id makeArray(const Class* type, const char* /*selector*/, const Id* items, std::size_t count)
{
    const Id array = newObject(type);
    for (std::size_t i = 0; i < count; ++i)
        Value(array).set(std::to_string(i), items[i]);
    return array;
}

struct EnumerationState {
    std::size_t done;
    Id* items;
    const std::size_t* mutations;
};

std::size_t enumerate(Id collection, const char* /*selector*/, EnumerationState* state, Id* buffer,
                      std::size_t length)
{
    const auto& properties = propertiesOf(collection);
    std::size_t given = 0;
    for (; given < length && state->done < properties.size(); ++given)
        buffer[given] = Value(std::next(properties.begin(), std::ptrdiff_t(state->done++))->first);
    state->items = buffer;
    static constexpr std::size_t unchanged = 0;
    state->mutations = &unchanged;
    return given;
}

/// Leaves each argument in the property that its part of the selector names, and returns nil.
Id storeArguments(Id receiver, const char* selector, Word first, Word second, Word third, Word fourth)
{
    std::string_view parts = selector;
    for (const std::string_view verb : {"set", "With"})
        if (const auto place = parts.find(verb); place != std::string_view::npos && place < parts.find(':'))
            parts.remove_prefix(place + verb.size());
    for (const Word argument : {first, second, third, fourth}) {
        std::string name(parts.substr(0, parts.find(':')));
        if (name.empty()) break;
        parts.remove_prefix(name.size() + 1);
        if (std::islower(name[1]) != 0) name[0] = static_cast<char>(std::tolower(name[0]));
        Value(receiver).set(name, argument);
    }
    return nullptr;
}

Id makeObject(Id type, const char* selector, Word first, Word second, Word third, Word fourth)
{
    const Id object = newObject(static_cast<const Class*>(type));
    storeArguments(object, selector, first, second, third, fourth);
    return object;
}

Id addObserver(Id center, const char* /*selector*/, Id name, Id /*object*/, Id /*queue*/, void (^block)(Id))
{
    observers.push_back({object(), center, Value(name).text(), Block_copy(block)});
    return observers.back().observation;
}

const std::map<std::string, Method> builtIn = {
    {"alloc", allocateInstance},
    {"init", [](Id object) { return object; }},
    {"class", [](Id type) { return type; }},
    {"isKindOfClass:", [](Id object, const char*, const void* type) { return object->type == type; }},
    {"initWithBytes:length:encoding:",
     [](Id, const char*, const char* bytes, std::size_t length) -> Id {
         return isValidUtf8({bytes, length}) ? Value(std::string_view(bytes, length)) : Value(nullptr);
     }},
    {"UTF8String", [](const String* text) { return text->characters; }},
    {"isEqualToString:",
     [](Id one, const char*, Id other) { return Value(one).text() == Value(other).text(); }},
    {"arrayWithObjects:count:", makeArray},
    {"objectForKeyedSubscript:",
     [](Id dictionary, const char*, Id key) -> Id { return Value(dictionary)[Value(key).text()]; }},
    {"setObject:forKeyedSubscript:",
     [](Id dictionary, const char*, Id value, Id key) { Value(dictionary).set(Value(key).text(), value); }},
    {"addOperationWithBlock:",
     [](Id queue, const char*, void (^task)()) {
         if (queue == Id(shared("mainQueue"))) mainQueue.push_back(Block_copy(task));
     }},
    {"timerWithTimeInterval:repeats:block:",
     [](Id, const char*, double interval, bool, void (^block)(Id)) -> Id {
         madeTimers().push_back(object({{"seconds", long(interval)}, {"block", Word(Block_copy(block))}}));
         return madeTimers().back();
     }},
    {"invalidate", [](Id timer, const char*) { Value(timer).set("isInvalid", true); }},
    {"addObserverForName:object:queue:usingBlock:", addObserver},
    {"removeObserver:",
     [](Id, const char*, Id observation) {
         std::erase_if(observers, [&](const Observer& each) { return Id(each.observation) == observation; });
     }},
    {"countByEnumeratingWithState:objects:count:", enumerate},
    {"URLForDirectory:inDomain:appropriateForURL:create:error:",
     [](Id, const char*) -> Id {
         return object({{"path", std::string_view(std::getenv("HOME") + std::string("/Support"))}});
     }},
};

}

}

using namespace chimewell::test::objc;

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the names are the system's
extern "C" {

Class NSObjectClass asm("OBJC_CLASS_$_NSObject") = {};
Class NSObjectMetaclass asm("OBJC_METACLASS_$_NSObject") = {};
Class NSStringClass asm("OBJC_CLASS_$_NSString") = {};
void* _objc_empty_cache = nullptr;

Value NSApplicationDidBecomeActiveNotification = "NSApplicationDidBecomeActiveNotification";
Value NSApplicationDidFinishLaunchingNotification = "NSApplicationDidFinishLaunchingNotification";
Value NSApplicationWillFinishLaunchingNotification = "NSApplicationWillFinishLaunchingNotification";
Value NSDeviceRGBColorSpace = "NSDeviceRGBColorSpace";
Value NSRunLoopCommonModes = "NSRunLoopCommonModes";
Value NSWorkspaceDidWakeNotification = "NSWorkspaceDidWakeNotification";
Value UNNotificationDefaultActionIdentifier = "UNNotificationDefaultActionIdentifier";
float AVSpeechUtteranceDefaultSpeechRate = 0.5F;

Id NSHomeDirectory()
{
    return Value(std::string_view(std::getenv("HOME")));
}

/// Lets pictures show that Qt, which the sanitizer doesn't watch, reads what is gone.
const char* __asan_default_options()
{
    return "max_free_fill_size=4096";
}

const char* __lsan_default_suppressions()
{
    return "leak:_Block_copy"; // blocks are kept for good, like the objects
}

/// The function that a message calls.
const void* chimewell_method(Id receiver, const char* selector)
{
    if (!receiver) return Method([]() -> Word { return 0; }).address;
    const auto* type = static_cast<const Class*>(receiver->type);
    const bool isClass = !type || (type->data && (type->data->flags & isMetaclass) != 0);
    const std::string_view name = selector;
    for (; type && type->data; type = type->superclass)
        if (type->data->methods)
            for (const CompiledMethod& method : *type->data->methods)
                if (method.name == name) return method.address;
    if (const auto found = methods.find(selector); found != methods.end()) return found->second.address;
    if (name.contains(':')) return Method(isClass ? makeObject : storeArguments).address;
    if (isClass) return Method([](Id, const char* method) -> Id { return shared(method); }).address;
    return Method([](Id object, const char* property) -> Id { return Value(object)[property]; }).address;
}

void objc_storeStrong(Id* place, Id object)
{
    *place = object;
}

/// All such properties of ours are blocks.
void objc_setProperty_nonatomic_copy(char* object, const char* /*selector*/, const void* block,
                                     std::ptrdiff_t offset)
{
    void* const copy = _Block_copy(block);
    std::memcpy(object + offset, &copy, sizeof copy);
}

void objc_enumerationMutation(Id /*collection*/)
{
    std::abort();
}
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

// A message must not touch an argument, whatever the method's signature: every register that may hold one
// (System V calling convention) is kept while the method is looked up. Then the method is jumped to. One that
// returns a large structure has the structure's address as its first argument.
asm(R"(
.macro MESSAGE name, receiver, selector
    .globl \name
\name:
    pushq %rbp
    movq %rsp, %rbp
    .irp register, rdi, rsi, rdx, rcx, r8, r9, rax, rax
    pushq %\register
    .endr
    subq $16, %rsp
    movups %xmm0, (%rsp)
    movq %\receiver, %rdi
    movq %\selector, %rsi
    callq chimewell_method
    movq %rax, %r11
    movups (%rsp), %xmm0
    addq $16, %rsp
    .irp register, rax, rax, r9, r8, rcx, rdx, rsi, rdi
    popq %\register
    .endr
    popq %rbp
    jmpq *%r11
.endm

.macro CLASSES names:vararg
    .irp name, \names
    .globl "OBJC_CLASS_$_\name"
"OBJC_CLASS_$_\name":
    .zero 40
    .endr
.endm

.text
MESSAGE objc_msgSend, rdi, rsi
MESSAGE objc_msgSend_stret, rsi, rdx

.irp name, retain, retainBlock, retainAutoreleasedReturnValue, autoreleaseReturnValue, release
.globl objc_\name
.endr
objc_retainBlock:
    jmp _Block_copy
objc_retain:
objc_retainAutoreleasedReturnValue:
objc_autoreleaseReturnValue:
objc_release:
    movq %rdi, %rax
    retq

.data
CLASSES AVSpeechSynthesisVoice, AVSpeechSynthesizer, AVSpeechUtterance, NSAppleEventManager, NSApplication, NSArray
CLASSES NSBitmapImageRep, NSBundle, NSDate, NSDateFormatter, NSFileManager, NSGraphicsContext, NSImage
CLASSES NSMutableDictionary, NSNotificationCenter, NSOperationQueue, NSProcessInfo, NSRelativeDateTimeFormatter, NSRunLoop
CLASSES NSRunningApplication, NSScreen, NSSet, NSSound, NSStatusBar, NSTimeZone, NSTimer, NSURL, NSWorkspace
CLASSES NSWorkspaceOpenConfiguration, SMAppService, UNMutableNotificationContent, UNNotificationAction
CLASSES UNNotificationCategory, UNNotificationRequest, UNUserNotificationCenter

.globl __CFConstantStringClassReference
.set __CFConstantStringClassReference, "OBJC_CLASS_$_NSString"
)");

namespace chimewell::test::objc {

Value::Value(std::string_view text)
{
    auto* const characters = static_cast<char*>(allocate(text.size() + 1));
    std::ranges::copy(text, characters);
    auto* const string = static_cast<String*>(allocate(sizeof(String)));
    *string = {{&NSStringClass}, 0, characters, text.size()};
    word_ = Word(string);
}

Value Value::operator[](const std::string& property) const
{
    if (word_ == 0) return nullptr;
    const auto& properties = propertiesOf(*this);
    const auto found = properties.find(property);
    return found == properties.end() ? nullptr : found->second;
}

void Value::set(const std::string& property, Value value) const
{
    propertiesOf(*this).insert_or_assign(property, value);
}

std::string Value::text() const
{
    if (word_ == 0) return {};
    const auto* const string = as<const String*>();
    return {string->characters, string->length};
}

std::map<std::string, std::string> Value::texts() const
{
    std::map<std::string, std::string> result;
    if (word_ == 0) return result;
    for (const auto& [key, value] : propertiesOf(*this))
        result.emplace(key, value.text());
    return result;
}

Value object(const std::map<std::string, Value>& properties)
{
    const Id made = newObject(&NSObjectClass);
    propertiesOf(made) = properties;
    return made;
}

Value shared(const std::string& classMethod)
{
    return sharedObjects.try_emplace(classMethod, object()).first->second;
}

void reset()
{
    observers.clear();
    mainQueue.clear();
    madeTimers().clear();
    sharedObjects.clear();
    methods = builtIn;
    shared("mainBundle").set("bundleIdentifier", "app.chimewell.Chimewell");
}

void runMainQueue()
{
    for (const auto& task : std::exchange(mainQueue, {}))
        task();
}

std::vector<Value>& madeTimers()
{
    static std::vector<Value> all;
    return all;
}

void ring(Value timer)
{
    timer["block"].as<void (^)(Id)>()(timer);
}

void notify(Value center, const std::string& notification)
{
    for (const Observer& each : std::vector(observers))
        if (each.center == center && each.notification == notification) each.block(object());
}

void implement(const std::string& selector, Method method)
{
    methods.insert_or_assign(selector, method);
}

}
