// SPDX-License-Identifier: MIT
// An application that writes the first URL that it is to open into a file beside its program, and ends.
#include "platform/macos/apple_events.h"

#import <AppKit/AppKit.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

int main(int, char** argv)
{
    ::alarm(60); // if none comes
    NSApplication* const application = NSApplication.sharedApplication;
    const chimewell::AppleEvents events({.didLaunch = [] {},
                                         .open =
                                             [&](const auto& url) {
                                                 const std::string part = std::string(argv[0]) + ".part";
                                                 std::ofstream(part) << url.value_or("no URL") << '\n';
                                                 std::filesystem::rename(part, std::string(argv[0]) + ".url");
                                                 std::_Exit(0);
                                             },
                                         .reopen = [] {},
                                         .quit = [](bool) {},
                                         .didWake = [] {}});
    [application run];
}
