// SPDX-License-Identifier: MIT
#include "fakes/sounds.h"

#include "fakes/main_thread.h"
#include "fakes/per_test.h"
#include "fakes/text.h"

#import <AppKit/AppKit.h>

#include <cstddef>
#include <map>
#include <optional>

using namespace chimewell::test::mac;

namespace {

struct Shared {
    SoundRecord record;
    std::map<std::string, NSSound*> named;
};

PerTest<Shared> shared;

}

@implementation NSSound {
    std::string name_;
    bool isShared_;
    std::optional<std::size_t> started_; ///< Where in the record it stands.
}

/// The system keeps one object for each name.
+ (NSSound*)soundNamed:(NSSoundName)name
{
    requireMainThread("+[NSSound soundNamed:]");
    if (!shared->record.existing.contains(plain(name))) return nil;
    NSSound* __strong& known = shared->named[plain(name)];
    if (!known) {
        known = [[NSSound alloc] init];
        known->name_ = plain(name);
        known->isShared_ = true;
    }
    return known;
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    NSSound* const copy = [[NSSound alloc] init];
    copy->name_ = name_;
    return copy;
}

/// A sound that plays already goes on as it is.
- (BOOL)play
{
    requireMainThread("-[NSSound play]");
    if (self.playing) return NO;
    started_ = shared->record.played.size();
    shared->record.played.push_back({.name = name_, .playing = true, .isShared = isShared_});
    return YES;
}

- (BOOL)stop
{
    if (!self.playing) return NO;
    shared->record.played[*started_].playing = false;
    return YES;
}

- (BOOL)isPlaying
{
    return started_ && shared->record.played[*started_].playing;
}

@end

namespace chimewell::test::mac {

SoundRecord& sounds()
{
    return shared->record;
}

}
