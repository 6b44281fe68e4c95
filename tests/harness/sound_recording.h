// SPDX-License-Identifier: MIT
#pragma once

#include "harness/child_process.h"
#include "support/temporary_folder.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace chimewell::test {

/// How many sounds the sound server is playing, or keeps without playing them.
int soundStreams();

/// Records what a private sound server plays, from the moment of its making on.
class SoundRecording {
public:
    SoundRecording();

    /// Seconds recorded so far.
    double duration() const;
    /// When anything was first heard; negative while nothing was.
    double onset() const;
    /// For how long nothing was heard at its end.
    double silenceAtEnd() const;
    /// For how long anything was heard, however interrupted.
    double soundingTime() const;
    /// The amplitude of one frequency from second `from` to second `to`; 1 is the loudest sine there is.
    double amplitude(double frequency, double from, double to) const;

    struct Stretch {
        double from;
        double to;
    };
    /// What was heard, in stretches with at least `pause` seconds of silence between them.
    std::vector<Stretch> stretches(double pause) const;

private:
    std::vector<std::int16_t> samples() const;

    TemporaryFolder folder_;
    std::unique_ptr<ChildProcess> recorder_;
};

}
