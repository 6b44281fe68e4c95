// SPDX-License-Identifier: MIT
#pragma once

#include "ports/clock.h"
#include "ports/files.h"

#include <filesystem>
#include <utility>

namespace chimewell {

/// The file that says "the user quit me on purpose": while it stands, an agent's hook does not start
/// the application. Failures are ignored; at worst an event starts us once more.
class DormantMarker {
public:
    DormantMarker(Files& files, const Clock& clock, std::filesystem::path folder)
        : files_(files),
          clock_(clock),
          folder_(std::move(folder))
    {
    }

    void write();
    void clear();

private:
    std::filesystem::path file() const { return folder_ / "dormant"; }

    Files& files_;
    const Clock& clock_;
    std::filesystem::path folder_;
};

}
