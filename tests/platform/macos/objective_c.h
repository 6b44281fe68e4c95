// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

/// Runs Objective-C on Linux as clang compiles it for Apple's runtime, on x86-64, and stands for the
/// frameworks.
///
/// What a message to a framework does follows from its name, unless a test says otherwise with `implement`:
///
///   - `+sharedWorkspace` returns the same object each time: shared("sharedWorkspace").
///   - `+requestWithIdentifier:content:` returns a new object with the properties "identifier" and "content".
///   - `-setTitle:` sets the property "title", which `-title` reads. It is nil or zero until it is set.
///   - `-openURL:` leaves its argument in the property "openURL".
///
/// Strings work. Arrays and dictionaries do too: the properties of an array are called "0", "1" and so on,
/// those of a dictionary have its keys. Nothing is ever released, so memory management isn't tested.
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
    /// Of a dictionary of strings; empty for nil.
    std::map<std::string, std::string> texts() const;

private:
    Word word_;
};

/// A new object, or dictionary, with these properties.
Value object(const std::map<std::string, Value>& properties = {});
/// What a class method of that name returns.
Value shared(const std::string& classMethod);
/// A fresh Mac: forgets the shared objects, what was implemented, queued and observed. The program has a
/// bundle. HOME says where the user's folders are.
void reset();
/// Runs what was queued for the main thread.
void runMainQueue();
/// Every timer that was made, in their order, with the properties "seconds" and "isInvalid".
std::vector<Value>& madeTimers();
void ring(Value timer);
/// Tells those who observe a notification at that center, in the order of their registration.
void notify(Value center, const std::string& notification);

/// A function or a lambda: what a message calls, with the receiver, the selector and the arguments.
struct Method {
    template<typename Function>
    Method(Function function) // NOLINT(google-explicit-constructor): written as the function
        : address(reinterpret_cast<const void*>(+function))
    {
    }
    const void* address;
};
/// Lets each message of that name call `method`.
void implement(const std::string& selector, Method method);

}

extern "C" void objc_msgSend();

namespace chimewell::test::objc {

template<typename... Arguments>
void send(Id receiver, const char* selector, Arguments... arguments)
{
    reinterpret_cast<void (*)(Id, const char*, Arguments...)>(objc_msgSend)(receiver, selector, arguments...);
}

}
