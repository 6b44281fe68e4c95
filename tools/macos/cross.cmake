# SPDX-License-Identifier: MIT
# A toolchain file: compiles for macOS on another system, with what tools/macos/make-sdk made. Takes
# CMAKE_SYSTEM_PROCESSOR (arm64 or x86_64) and CMAKE_OSX_SYSROOT from the command line.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CMAKE_SYSTEM_PROCESSOR)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY) # there is nothing to link a program with before we make it

find_program(clang clang++-19 REQUIRED)
foreach(language IN ITEMS CXX OBJCXX)
  set(CMAKE_${language}_COMPILER ${clang})
  set(CMAKE_${language}_COMPILER_TARGET ${CMAKE_SYSTEM_PROCESSOR}-apple-macos)
  # The compiler would take the other system's libc++, which is said to run on any macOS.
  set(CMAKE_${language}_FLAGS_INIT "-nostdinc++ -isystem ${CMAKE_OSX_SYSROOT}/usr/include/c++/v1")
endforeach()
find_program(CMAKE_AR llvm-ar-19 REQUIRED)
find_program(CMAKE_RANLIB llvm-ranlib-19 REQUIRED)
find_program(CMAKE_INSTALL_NAME_TOOL llvm-install-name-tool-19 REQUIRED)
# Without a version the linker is called as one of years ago, with options that it does not know any more.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fuse-ld=lld -mlinker-version=711")

set(CMAKE_FIND_ROOT_PATH ${CMAKE_OSX_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${CMAKE_OSX_SYSROOT}/usr/local/lib/pkgconfig)
