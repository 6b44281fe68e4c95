// SPDX-License-Identifier: MIT
#include "platform/macos/appkit_workspace.h"

#include "platform/macos/foundation.h"
#include "platform/posix/posix_files.h"

#include <chrono>
#include <optional>

#import <AppKit/AppKit.h>

namespace chimewell {

namespace {

constexpr std::string_view finder = "com.apple.finder";
constexpr std::chrono::seconds timeout{1};

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

/// Blocks for as long as the disk or the network takes.
std::optional<FileKind> kindOf(const std::filesystem::path& path)
{
    const auto kind = PosixFiles().kind(path);
    const bool isPackage = kind == FileKind::folder &&
                           [NSWorkspace.sharedWorkspace isFilePackageAtPath:foundationText(path.native())];
    return isPackage ? FileKind::other : kind;
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
    if (!running) return false;
    constexpr auto options = static_cast<NSApplicationActivationOptions>(0);
    // The active application, which is ours after a click on a banner, hands over. Without that, macOS 14 and
    // later may refuse.
    if (@available(macOS 14, *)) {
        [NSApplication.sharedApplication yieldActivationToApplication:running];
        return [running activateFromApplication:NSRunningApplication.currentApplication options:options];
    }
    return [running activateWithOptions:options];
}

void AppKitWorkspace::findKind(const std::filesystem::path& path, std::function<void(FileKind)> done)
{
    const std::filesystem::path asked = path; // a block would keep the reference
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    NSOperationQueue* const queue =
        [[NSOperationQueue alloc] init]; // its own, as the question about another path may never end
    [queue addOperationWithBlock:^{
        const auto kind = kindOf(asked);
        if (kind && std::chrono::steady_clock::now() < deadline) postToMain([done, kind] { done(*kind); });
    }];
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
