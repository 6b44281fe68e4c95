// SPDX-License-Identifier: MIT
#import <Foundation/Foundation.h>

#include "runtime/live_objects.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

// What the other tests rely upon: an object lives exactly as long as somebody holds it, and messages arrive
// whole.

struct Wide {
    double a, b, c, d;
};

@interface Animal : NSObject {
@protected
    std::shared_ptr<int> tally_;
}
@property (nonatomic, weak) Animal* friendOfIt;
@property (nonatomic, copy) NSString* (^voice)(void);
- (instancetype)initWithTally:(std::shared_ptr<int>)tally;
- (Wide)measure:(double)scale
             of:(Wide)wide
            and:(int)a
            and:(int)b
            and:(int)c
            and:(int)d
            and:(int)e
            and:(float)f;
@end

@interface Cat : Animal
@end

@interface Animal (Sleep)
- (int)sleepsFor;
@end

@implementation Animal

- (instancetype)initWithTally:(std::shared_ptr<int>)tally
{
    self = [super init];
    tally_ = std::move(tally);
    return self;
}

- (Wide)measure:(double)scale
             of:(Wide)wide
            and:(int)a
            and:(int)b
            and:(int)c
            and:(int)d
            and:(int)e
            and:(float)f
{
    return {wide.a * scale, wide.b + a + b, wide.c + c + d, wide.d + e + static_cast<double>(f)};
}

- (void)dealloc
{
    if (tally_) ++*tally_;
}

@end

@implementation Cat

- (Wide)measure:(double)scale
             of:(Wide)wide
            and:(int)a
            and:(int)b
            and:(int)c
            and:(int)d
            and:(int)e
            and:(float)f
{
    Wide result = [super measure:scale of:wide and:a and:b and:c and:d and:e and:f];
    result.a = -result.a;
    return result;
}

@end

@implementation Animal (Sleep)
- (int)sleepsFor
{
    return tally_ ? 8 : 9;
}
@end

namespace chimewell::test {

TEST(RuntimeTest, AnObjectEndsWithItsLastReference)
{
    const auto ended = std::make_shared<int>(0);
    Animal* const cat = [[Cat alloc] initWithTally:ended];
    {
        const objc::AutoreleasePool pool;
        Animal* other = [[Animal alloc] initWithTally:ended];
        cat.friendOfIt = other;
        EXPECT_TRUE(cat.friendOfIt == other);
        EXPECT_EQ(ended.use_count(), 3);
        other = nil;
        EXPECT_EQ(*ended, 0); // the pool still has it
    }
    EXPECT_EQ(*ended, 1);
    EXPECT_EQ(ended.use_count(), 2); // the C++ variable went with its object
    EXPECT_TRUE(cat.friendOfIt == nil);
}

TEST(RuntimeTest, BlocksKeepWhatTheyCapture)
{
    const auto ended = std::make_shared<int>(0);
    {
        const objc::AutoreleasePool pool;
        std::function<int()> later;
        Animal* holder = [[Animal alloc] initWithTally:ended];
        {
            Animal* const captured = [[Cat alloc] initWithTally:ended];
            __block int calls = 0;
            __weak Animal* weakly = holder;
            const std::string spoken = "miau ";
            holder.voice = ^{
                ++calls;
                EXPECT_FALSE(weakly == nil);
                return [captured sleepsFor] == 8 && spoken == "miau " ? @"mi\u00e4u" : @"";
            };
            int (^const add)(void) = ^{
                return calls += 10;
            };
            later = [add] { return add(); };
            EXPECT_EQ(later(), 10);
            EXPECT_STREQ(holder.voice().UTF8String, "miäu");
            EXPECT_EQ(later(), 21);
        }
        EXPECT_EQ(*ended, 0);
        holder = nil;
    }
    EXPECT_EQ(*ended, 2);
}

TEST(RuntimeTest, MessagesArriveWhole)
{
    const auto measured = [](Animal* animal) {
        return [animal measure:2 of:{1, 2, 3, 4} and:1 and:10 and:100 and:1000 and:10000 and:0.5F];
    };
    const Wide cat = measured([[Cat alloc] init]);
    EXPECT_EQ(cat.a, -2);
    EXPECT_EQ(cat.b, 13);
    EXPECT_EQ(cat.c, 1103);
    EXPECT_EQ(cat.d, 10004.5);
    const Wide nobody = measured(nil);
    EXPECT_EQ(nobody.a + nobody.d, 0);
    EXPECT_EQ([[[Cat alloc] init] sleepsFor], 9);
}

TEST(RuntimeDeathTest, MistakesEndTheProgram)
{
    EXPECT_DEATH([static_cast<id>([[Cat alloc] init]) firstObject],
                 "-\\[Cat firstObject\\]: unrecognized selector");
    EXPECT_DEATH([static_cast<id>([Cat class]) sleepsFor], "\\+\\[Cat sleepsFor\\]: unrecognized selector");
}

}
