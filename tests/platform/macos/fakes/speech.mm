// SPDX-License-Identifier: MIT
#include "fakes/speech.h"

#include "fakes/per_test.h"
#include "fakes/text.h"

#import <AVFAudio/AVFAudio.h>

using namespace chimewell::test::mac;

const float AVSpeechUtteranceDefaultSpeechRate = defaultSpeechRate;

namespace {

PerTest<SpeechRecord> record;

}

@implementation AVSpeechSynthesisVoice {
    chimewell::Voice voice_;
}

+ (NSArray<AVSpeechSynthesisVoice*>*)speechVoices
{
    std::vector<AVSpeechSynthesisVoice*> all;
    for (const chimewell::Voice& installed : record->installed) {
        all.push_back([[AVSpeechSynthesisVoice alloc] init]);
        all.back()->voice_ = installed;
    }
    return [NSArray arrayWithObjects:all.data() count:all.size()];
}

+ (AVSpeechSynthesisVoice*)voiceWithIdentifier:(NSString*)identifier
{
    for (AVSpeechSynthesisVoice* const voice in [self speechVoices])
        if (voice->voice_.identifier == plain(identifier)) return voice;
    return nil;
}

- (NSString*)identifier
{
    return text(voice_.identifier);
}

- (NSString*)name
{
    return text(voice_.name);
}

- (NSString*)language
{
    return text(voice_.language);
}

@end

@implementation AVSpeechUtterance {
@public
    NSString* string_;
}

@synthesize voice, rate;

+ (instancetype)speechUtteranceWithString:(NSString*)string
{
    AVSpeechUtterance* const utterance = [[self alloc] init];
    utterance->string_ = string;
    return utterance;
}

@end

@implementation AVSpeechSynthesizer {
    int number_;
}

- (instancetype)init
{
    self = [super init];
    number_ = ++record->synthesizers;
    return self;
}

- (void)speakUtterance:(AVSpeechUtterance*)utterance
{
    record->spoken.push_back({.text = plain(utterance->string_),
                              .voice = plain(utterance.voice.identifier),
                              .rate = utterance.rate,
                              .synthesizer = number_});
}

@end

namespace chimewell::test::mac {

SpeechRecord& speech()
{
    return *record;
}

}
