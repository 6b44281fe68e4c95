// SPDX-License-Identifier: MIT
#import "fakes/values.h"

#include "fakes/text.h"

#include <algorithm>
#include <utility>
#include <vector>

using chimewell::test::mac::plain;
using chimewell::test::mac::text;

namespace {

/// Answers a for-in loop: hands over the next objects, as many as fit.
template<typename Objects, typename Get>
NSUInteger enumerate(const Objects& objects, Get get, NSFastEnumerationState* state,
                     id __unsafe_unretained* buffer, NSUInteger length)
{
    NSUInteger given = 0;
    for (; given < length && state->state < objects.size(); ++state->state)
        buffer[given++] = get(objects[state->state]);
    state->itemsPtr = buffer;
    state->mutationsPtr = &state->extra[0]; // these collections do not change
    return given;
}

}

@implementation NSArray {
    std::vector<id> objects_;
}

+ (instancetype)arrayWithObjects:(const id[])objects count:(NSUInteger)count
{
    NSArray* const array = [[self alloc] init];
    array->objects_.assign(objects, objects + count);
    return array;
}

- (NSUInteger)count
{
    return objects_.size();
}

- (id)firstObject
{
    return objects_.empty() ? nil : objects_.front();
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    return self;
}

- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)length
{
    return enumerate(objects_, [](id object) { return object; }, state, buffer, length);
}

@end

/// What the compiler takes for @[].
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the compiler's name
extern "C" const id __NSArray0__;
const id __NSArray0__ = [[NSArray alloc] init];
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

@implementation NSSet {
    std::vector<id> objects_;
}

+ (instancetype)setWithObject:(id)object
{
    NSSet* const set = [[self alloc] init];
    set->objects_.push_back(object);
    return set;
}

- (NSUInteger)count
{
    return objects_.size();
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    return self;
}

- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)length
{
    return enumerate(objects_, [](id object) { return object; }, state, buffer, length);
}

@end

@implementation NSDictionary {
@public
    std::vector<std::pair<id, id>> entries_;
}

- (NSUInteger)count
{
    return entries_.size();
}

- (id)objectForKey:(id)key
{
    const auto found =
        std::ranges::find_if(entries_, [&](const auto& entry) { return [entry.first isEqual:key]; });
    return found == entries_.end() ? nil : found->second;
}

- (id)objectForKeyedSubscript:(id)key
{
    return [self objectForKey:key];
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    return self;
}

- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)length
{
    return enumerate(entries_, [](const auto& entry) { return entry.first; }, state, buffer, length);
}

@end

@implementation NSMutableDictionary

- (void)setObject:(id)object forKeyedSubscript:(id<NSCopying>)key
{
    std::erase_if(entries_, [&](const auto& entry) { return [entry.first isEqual:key]; });
    if (object) entries_.emplace_back([static_cast<id>(key) copy], object);
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    NSDictionary* const copy = [[NSDictionary alloc] init];
    copy->entries_ = entries_;
    return copy;
}

@end

@implementation NSDate {
    NSTimeInterval since1970_;
}

+ (instancetype)dateWithTimeIntervalSince1970:(NSTimeInterval)seconds
{
    NSDate* const date = [[self alloc] init];
    date->since1970_ = seconds;
    return date;
}

- (NSTimeInterval)timeIntervalSince1970
{
    return since1970_;
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    return self;
}

@end

@implementation NSError {
    NSString* description_;
}

+ (instancetype)errorWithDescription:(NSString*)description
{
    NSError* const error = [[self alloc] init];
    error->description_ = description;
    return error;
}

- (NSString*)localizedDescription
{
    return description_;
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    return self;
}

@end

@implementation NSURL {
    NSString* address_;
    NSString* path_;
}

+ (NSURL*)fileURLWithPath:(NSString*)path isDirectory:(BOOL)isDirectory
{
    constexpr char hexadecimal[] = "0123456789ABCDEF";
    constexpr std::string_view kept = "-._~/!$&'()*+,;=:@";
    std::string address = "file://";
    for (const char character : plain(path)) {
        const auto byte = static_cast<unsigned char>(character);
        const bool letterOrDigit =
            (byte >= '0' && byte <= '9') || ((byte | 0x20) >= 'a' && (byte | 0x20) <= 'z');
        if (letterOrDigit || kept.contains(character))
            address += character;
        else
            (address += '%') += {hexadecimal[byte >> 4], hexadecimal[byte & 15]};
    }
    if (isDirectory && !address.ends_with('/')) address += '/';
    NSURL* const url = [[self alloc] init];
    url->address_ = text(address);
    url->path_ = path;
    return url;
}

+ (instancetype)URLWithString:(NSString*)string
{
    const std::string address = plain(string);
    const auto cannotStandInUrl = [](char byte) { return byte <= ' ' || byte > '~' || byte == '"'; };
    if (address.empty() || std::ranges::any_of(address, cannotStandInUrl)) return nil;
    NSURL* const url = [[self alloc] init];
    url->address_ = string;
    return url;
}

- (NSString*)absoluteString
{
    return address_;
}

- (NSString*)path
{
    return path_;
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    return self;
}

@end
