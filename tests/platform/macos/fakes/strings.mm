// SPDX-License-Identifier: MIT
#import <Foundation/Foundation.h>

#include "base/utf8.h"

#include <cstring>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

@interface NSString (Bytes)
/// The characters as UTF-8, valid as long as the string lives.
- (std::string_view)bytes;
@end

@implementation NSString {
    std::string bytes_;
}

- (instancetype)initWithBytes:(const void*)bytes length:(NSUInteger)length encoding:(NSStringEncoding)encoding
{
    self = [super init];
    bytes_.assign(static_cast<const char*>(bytes), length);
    return encoding == NSUTF8StringEncoding && chimewell::isValidUtf8(bytes_) ? self : nil;
}

- (std::string_view)bytes
{
    return bytes_;
}

- (const char*)UTF8String
{
    return [self bytes].data();
}

/// In UTF-16 code units: a character outside the basic plane has four bytes in UTF-8 and two units.
- (NSUInteger)length
{
    NSUInteger units = 0;
    for (const char byte : [self bytes])
        units += chimewell::isUtf8Continuation(byte) ? 0 : chimewell::utf8Length(byte) == 4 ? 2 : 1;
    return units;
}

- (BOOL)isEqualToString:(NSString*)other
{
    return [self bytes] == [other bytes];
}

- (BOOL)isEqual:(id)other
{
    return [other isKindOfClass:[NSString class]] && [self isEqualToString:other];
}

- (NSUInteger)hash
{
    return std::hash<std::string_view>()([self bytes]);
}

- (NSString*)description
{
    return self;
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    return self;
}

@end

namespace {

/// What the compiler lays out for @"...".
struct ConstantString {
    void* isa;
    std::uint32_t flags;
    const void* characters;
    std::uint64_t length;
};

constexpr std::uint32_t sixteenBitFlags = 0x7d0; ///< The others hold ASCII.

std::string fromUtf16(std::u16string_view units)
{
    std::string bytes;
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t character = units[i];
        if (character >= 0xd800 && character < 0xdc00 && i + 1 < units.size())
            character = 0x10000 + ((character - 0xd800) << 10) + (units[++i] - 0xdc00U);
        bytes += chimewell::Utf8Character(character).bytes();
    }
    return bytes;
}

/// The constant's bytes, which like itself stay for good.
std::string_view bytesOf(const ConstantString& constant)
{
    if (constant.flags != sixteenBitFlags)
        return {static_cast<const char*>(constant.characters), constant.length};
    static auto& mutex = *new std::mutex;
    static auto& converted = *new std::map<const void*, std::string>;
    const std::scoped_lock locked(mutex);
    const auto [found, added] = converted.try_emplace(&constant);
    if (added)
        found->second = fromUtf16({static_cast<const char16_t*>(constant.characters), constant.length});
    return found->second;
}

}

@interface NSConstantString : NSString
@end

@implementation NSConstantString
- (std::string_view)bytes
{
    return bytesOf(*(__bridge const ConstantString*)self);
}
@end

// The name under which @"..." refers to its class.
asm(R"(
.globl __CFConstantStringClassReference
.set __CFConstantStringClassReference, "OBJC_CLASS_$_NSConstantString"
)");
