// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/sound/pulse_connection.h"
#include "platform/linux/sound/wav_file.h"
#include "ports/system_sounds.h"

#include <QTimer>

#include <pulse/operation.h>
#include <pulse/stream.h>

#include <memory>

namespace chimewell {

/// One playing of a WAV file: a stream of its own at the sound server, which is handed all samples at once,
/// so that a busy application cannot interrupt it.
class PulseSound : public Sound, private PulseConnection::Player {
public:
    PulseSound(std::shared_ptr<PulseConnection> connection, std::shared_ptr<const WavFile> file);
    ~PulseSound() override;
    PulseSound(const PulseSound&) = delete;
    PulseSound& operator=(const PulseSound&) = delete;

    /// Does nothing while it plays already.
    void play() override;
    void stop() override;
    bool isPlaying() const override { return isPlaying_; }

private:
    bool start(pa_context& context) override;
    void failed() override;
    void streamChanged();
    void handOver();

    struct OperationDeleter {
        void operator()(pa_operation* operation) const;
    };

    std::shared_ptr<PulseConnection> connection_;
    std::shared_ptr<const WavFile> file_;
    pa_stream* stream_ = nullptr;                           // owned
    std::unique_ptr<pa_operation, OperationDeleter> drain_; // calls back until it is destroyed
    bool isPlaying_ = false;
    bool isAccepted_ = false; // the server answered for `stream_`
    QTimer overdue_;          // for an end that the server never tells
};

}
