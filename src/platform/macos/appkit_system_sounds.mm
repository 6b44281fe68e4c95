// SPDX-License-Identifier: MIT
#include "platform/macos/appkit_system_sounds.h"

#include "platform/macos/foundation.h"

#import <AppKit/AppKit.h>

namespace chimewell {

namespace {

class AppKitSound final : public Sound {
public:
    explicit AppKitSound(NSSound* sound) : sound_(sound) {}
    AppKitSound(const AppKitSound&) = delete;
    AppKitSound& operator=(const AppKitSound&) = delete;
    ~AppKitSound() override { [sound_ stop]; }

    void play() override { [sound_ play]; }
    void stop() override { [sound_ stop]; }
    bool isPlaying() const override { return sound_.playing; }

private:
    NSSound* sound_;
};

}

std::unique_ptr<Sound> AppKitSystemSounds::named(std::string_view name)
{
    // There is one object for each name, which plays one at a time: only copies sound together.
    NSSound* const sound = [[NSSound soundNamed:foundationText(name)] copy];
    return sound ? std::make_unique<AppKitSound>(sound) : nullptr;
}

}
