// SPDX-License-Identifier: MIT
#pragma once

// The part of CoreFoundation that the helper uses, declared by hand for checking on other systems. All of it
// is there since macOS 10.0.

typedef unsigned char Boolean;
typedef unsigned char UInt8;
typedef unsigned int UInt32;
typedef int OSStatus;

typedef long CFIndex;
typedef UInt32 CFStringEncoding;

typedef const void* CFTypeRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFArray* CFArrayRef;
typedef const struct __CFURL* CFURLRef;

enum CFStringBuiltInEncodings : CFStringEncoding {
    kCFStringEncodingUTF8 = 0x08000100,
};

typedef struct CFArrayCallBacks CFArrayCallBacks;

extern "C" {
extern const CFArrayCallBacks kCFTypeArrayCallBacks;

void CFRelease(CFTypeRef object);
CFURLRef CFURLCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes, CFIndex length,
                              CFStringEncoding encoding, CFURLRef base);
CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef allocator, const UInt8* path, CFIndex length,
                                                 Boolean isFolder);
CFArrayRef CFArrayCreate(CFAllocatorRef allocator, const void** values, CFIndex count,
                         const CFArrayCallBacks* callBacks);
}
