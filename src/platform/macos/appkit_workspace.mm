// SPDX-License-Identifier: MIT
#include "platform/macos/appkit_workspace.h"

#include "platform/macos/text.h"

#import <AppKit/AppKit.h>

namespace chimewell {

namespace {

constexpr std::string_view finder = "com.apple.finder";

NSURL* installed(std::string_view bundleIdentifier)
{
    return
        [NSWorkspace.sharedWorkspace URLForApplicationWithBundleIdentifier:foundationText(bundleIdentifier)];
}

NSWorkspaceOpenConfiguration* activating()
{
    NSWorkspaceOpenConfiguration* const configuration = [NSWorkspaceOpenConfiguration configuration];
    configuration.activates = YES;
    return configuration;
}

NSURL* fileUrl(const std::filesystem::path& path, BOOL isFolder)
{
    return [NSURL fileURLWithPath:foundationText(path.native()) isDirectory:isFolder];
}

}

bool AppKitWorkspace::isInstalled(const TerminalApplication& application) const
{
    return installed(application.bundleIdentifier) != nil;
}

void AppKitWorkspace::openActivating(const TerminalApplication& application)
{
    NSURL* const program = installed(application.bundleIdentifier);
    if (!program) return;
    [NSWorkspace.sharedWorkspace openApplicationAtURL:program
                                        configuration:activating()
                                    completionHandler:nil];
}

bool AppKitWorkspace::activateRunning(const TerminalApplication& application)
{
    NSString* const identifier = foundationText(application.bundleIdentifier);
    NSRunningApplication* const running =
        [NSRunningApplication runningApplicationsWithBundleIdentifier:identifier].firstObject;
    return [running activateWithOptions:static_cast<NSApplicationActivationOptions>(0)];
}

bool AppKitWorkspace::openFolder(const std::filesystem::path& folder)
{
    NSURL* const program = installed(finder);
    if (!program) return false;
    [NSWorkspace.sharedWorkspace openURLs:@[ fileUrl(folder, YES) ]
                     withApplicationAtURL:program
                            configuration:activating()
                        completionHandler:nil];
    return true;
}

void AppKitWorkspace::reveal(const std::filesystem::path& path)
{
    [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ fileUrl(path, NO) ]];
}

}
