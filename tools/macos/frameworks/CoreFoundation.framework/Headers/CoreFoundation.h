// SPDX-License-Identifier: MIT
#pragma once

// The part of CoreFoundation that the helper uses, declared by hand for checking on other systems. All of it
// is there since macOS 10.0.

// An options type is, in C++, the plain integer beside an enumeration without a name.
#define CF_OPTIONS(type, name)                                                                               \
    type name;                                                                                               \
    enum __attribute__((flag_enum, enum_extensibility(open))) : type

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

enum CFStringBuiltInEncodings : CFStringEncoding { kCFStringEncodingUTF8 = 0x08000100 };

struct CFArrayCallBacks;

extern "C" const CFArrayCallBacks kCFTypeArrayCallBacks;

extern "C" void CFRelease(CFTypeRef object);
extern "C" CFURLRef CFURLCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes, CFIndex length, CFStringEncoding encoding, CFURLRef base);
extern "C" CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef allocator, const UInt8* path, CFIndex length, Boolean isFolder);
extern "C" CFArrayRef CFArrayCreate(CFAllocatorRef allocator, const void** values, CFIndex count, const CFArrayCallBacks* callBacks);
