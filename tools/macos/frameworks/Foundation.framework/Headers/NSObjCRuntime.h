// SPDX-License-Identifier: MIT
#pragma once

// What the compiler expects to be told about its own language.

#include <stddef.h>
#include <stdint.h>

#if __OBJC_BOOL_IS_BOOL
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
#define YES __objc_yes
#define NO __objc_no
#ifndef nil
#define nil nullptr
#endif

typedef long NSInteger;
typedef unsigned long NSUInteger;

#define NS_EXTERN extern "C" __attribute__((visibility("default")))

// typedef NS_ENUM(type, name) { ... }; is an open enumeration of that name. An options type is, in C++, the
// plain integer beside an enumeration without a name.
#define NS_ENUM(type, name)                                                                                  \
    enum __attribute__((enum_extensibility(open))) name : type name;                                         \
    enum name : type
#define NS_OPTIONS(type, name)                                                                               \
    type name;                                                                                               \
    enum __attribute__((flag_enum, enum_extensibility(open))) : type
