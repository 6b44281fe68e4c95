// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

/// Runs Objective-C on Linux as clang compiles it for Apple's runtime, on x86-64, and stands for the
/// frameworks.
///
/// What a message to a framework does follows from its name, unless a test says otherwise with `implement`:
///
///     +sharedWorkspace                      returns the same object each time: shared("sharedWorkspace")
///     +requestWithIdentifier:content:...    returns a new object with the properties "identifier",
///     "content", ... -setTitle:                            sets the property "title" -title reads it; nil or
///     zero if nobody has set it -openURL:                             leaves its argument in the property
///     "openURL"
///
/// Strings, arrays and dictionaries work. Nothing is ever released: that ARC does its work is taken for
/// granted.
namespace chimewell::test::objc {

using Word = std::uintptr_t;

struct Object {
    const void* type;
};
using Id = Object*;

/// An argument, result or property: an object, a block, a text or a number.
class Value {
public:
    template<typename Type>
        requires(std::is_scalar_v<Type> && !std::is_same_v<Type, const char*>)
    Value(Type value) : word_(Word(value)) // NOLINT(google-explicit-constructor): as in a message
    {
    }
    Value(std::string_view text); // NOLINT(google-explicit-constructor): as in a message
    Value(const char* text)
        : Value(std::string_view(text)) {} // NOLINT(google-explicit-constructor): as above

    template<typename Type>
    Type as() const
    {
        return Type(word_); // NOLINT(performance-no-int-to-ptr)
    }
    operator Id() const { return as<Id>(); } // NOLINT(google-explicit-constructor): as in a message
    bool operator==(const Value&) const = default;

    /// Reads or sets a property. Of nil, all are nil.
    Value operator[](const std::string& property) const;
    void set(const std::string& property, Value value) const;
    /// Of a string; empty for nil.
    std::string text() const;
    std::map<std::string, std::string> dictionaryTexts() const;

private:
    Word word_;
};

/// A new object with these properties.
Value object(const std::map<std::string, Value>& properties = {});
/// A new dictionary.
Value dictionary(const std::vector<std::pair<Value, Value>>& entries);
/// What a class method of that name returns.
Value shared(const std::string& classMethod);
/// A fresh Mac: forgets the shared objects, what was implemented, queued and observed. The program has a
/// bundle.
void reset();
/// Runs what was queued for the main thread.
void runMainQueue();
/// Tells those who observe a notification at that center, in the order of their registration.
void notify(Value center, const std::string& notification);

void implementAt(const std::string& selector, const void* function);
/// Lets each message of that name call `function`, which gets the receiver, the selector and the arguments.
template<typename Function>
void implement(const std::string& selector, Function* function)
{
    implementAt(selector, reinterpret_cast<const void*>(function));
}

}

extern "C" void objc_msgSend();
extern "C" void* _Block_copy(const void* block);

namespace chimewell::test::objc {

/// Moves a block off the stack, so that it can be called later.
template<typename Block>
Block keep(Block block)
{
    return reinterpret_cast<Block>(_Block_copy(reinterpret_cast<const void*>(block)));
}

template<typename... Arguments>
void send(Id receiver, const char* selector, Arguments... arguments)
{
    reinterpret_cast<void (*)(Id, const char*, Arguments...)>(objc_msgSend)(receiver, selector, arguments...);
}

}
