// SPDX-License-Identifier: MIT
#pragma once

// The part of AVFAudio that we use, declared by hand for checking on other systems. All of it is there since
// macOS 10.14.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

NS_EXTERN const float AVSpeechUtteranceDefaultSpeechRate;

@interface AVSpeechSynthesisVoice : NSObject
+ (NSArray<AVSpeechSynthesisVoice*>*)speechVoices;
+ (nullable AVSpeechSynthesisVoice*)voiceWithIdentifier:(NSString*)identifier;
@property (nonatomic, readonly) NSString* language;
@property (nonatomic, readonly) NSString* identifier;
@property (nonatomic, readonly) NSString* name;
@end

@interface AVSpeechUtterance : NSObject
+ (instancetype)speechUtteranceWithString:(NSString*)string;
@property (nonatomic, retain, nullable) AVSpeechSynthesisVoice* voice;
@property (nonatomic) float rate;
@end

@interface AVSpeechSynthesizer : NSObject
- (void)speakUtterance:(AVSpeechUtterance*)utterance;
@end

#pragma clang assume_nonnull end
