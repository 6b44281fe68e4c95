// SPDX-License-Identifier: MIT
#include "platform/linux/sound/pulse_system_sounds.h"

#include "platform/linux/sound/pulse_connection.h"
#include "platform/linux/sound/wav_file.h"

#include <QTimer>

#include <pulse/operation.h>
#include <pulse/proplist.h>
#include <pulse/sample.h>
#include <pulse/stream.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <utility>

namespace chimewell {
namespace {

using namespace std::chrono_literals;

/// How long after its last sample a sound may still count as playing when the server does not report its end.
/// No device buffers that much.
constexpr auto overdueAfter = 2s;

/// What the server buffers towards the device. Small, so that `stop` is heard at once.
constexpr auto bufferedTime = 100ms;

struct OperationDeleter {
    void operator()(pa_operation* operation) const
    {
        pa_operation_cancel(operation);
        pa_operation_unref(operation);
    }
};

/// Plays a WAV file by a stream of its own at the sound server. The server is handed all samples at once, so
/// that a busy application cannot interrupt the sound.
class PulseSound final : public Sound, private PulseConnection::Player {
public:
    PulseSound(std::shared_ptr<PulseConnection> connection, std::shared_ptr<const WavFile> file)
        : connection_(std::move(connection)),
          file_(std::move(file))
    {
        overdue_.setSingleShot(true);
        // The stream is stuck at the server, or the server is: start afresh.
        QObject::connect(&overdue_, &QTimer::timeout, &overdue_, [this] { connection_->giveUp(); });
    }
    ~PulseSound() override { PulseSound::stop(); }
    PulseSound(const PulseSound&) = delete;
    PulseSound& operator=(const PulseSound&) = delete;

    /// Does nothing while the sound is already playing.
    void play() override
    {
        if (isPlaying_) return;
        isPlaying_ = true;
        connection_->enqueue(*this);
    }

    void stop() override
    {
        if (!isPlaying_) return;
        isPlaying_ = false;
        overdue_.stop();
        drain_.reset();
        if (pa_stream* stream = std::exchange(stream_, nullptr)) connection_->discard(stream);
        connection_->remove(*this);
    }

    bool isPlaying() const override { return isPlaying_; }

private:
    bool start(pa_context& context) override
    {
        const pa_sample_spec format{
            .format = PA_SAMPLE_S16LE, .rate = file_->framesPerSecond, .channels = file_->channels};
        const ProplistPointer properties(pa_proplist_new());
        pa_proplist_sets(properties.get(), PA_PROP_MEDIA_ROLE, "event");
        stream_ = pa_stream_new_with_proplist(&context, "Alert", &format, nullptr, properties.get());
        if (!stream_) return false;

        constexpr auto serverDefault = static_cast<std::uint32_t>(-1);
        const auto buffered = static_cast<pa_usec_t>(std::chrono::microseconds(bufferedTime).count());
        const pa_buffer_attr buffer{.maxlength = serverDefault,
                                    .tlength =
                                        static_cast<std::uint32_t>(pa_usec_to_bytes(buffered, &format)),
                                    .prebuf = serverDefault,
                                    .minreq = serverDefault,
                                    .fragsize = serverDefault};
        isAnswered_ = false;
        const auto changed = [](pa_stream*, void* self) { static_cast<PulseSound*>(self)->streamChanged(); };
        pa_stream_set_state_callback(stream_, changed, this);
        return pa_stream_connect_playback(stream_, nullptr, &buffer, PA_STREAM_ADJUST_LATENCY, nullptr,
                                          nullptr) >= 0;
    }

    void failed() override { stop(); }

    void streamChanged()
    {
        const pa_stream_state_t state = pa_stream_get_state(stream_);
        if (state == PA_STREAM_CREATING) return;
        const bool wasAnswered = std::exchange(isAnswered_, true);
        if (state == PA_STREAM_READY)
            sendSamples();
        else
            stop();
        if (!wasAnswered) connection_->answered();
    }

    void sendSamples()
    {
        overdue_.start(file_->duration() + overdueAfter);
        pa_stream_write(stream_, file_->samples.data(), file_->samples.size(), nullptr, 0, PA_SEEK_RELATIVE);
        const auto drained = [](pa_stream*, int, void* self) { static_cast<PulseSound*>(self)->stop(); };
        drain_.reset(pa_stream_drain(stream_, drained, this));
    }

    std::shared_ptr<PulseConnection> connection_;
    std::shared_ptr<const WavFile> file_;
    pa_stream* stream_ = nullptr;                           // owned
    std::unique_ptr<pa_operation, OperationDeleter> drain_; // calls back until it is destroyed
    bool isPlaying_ = false;
    bool isAnswered_ = false; // the server accepted or refused `stream_`
    QTimer overdue_;          // runs out when the server does not report the end
};

}

PulseSystemSounds::PulseSystemSounds(std::filesystem::path folder)
    : folder_(std::move(folder)),
      connection_(std::make_shared<PulseConnection>())
{
}

PulseSystemSounds::~PulseSystemSounds() = default;

std::unique_ptr<Sound> PulseSystemSounds::named(std::string_view name)
{
    auto known = files_.find(name);
    if (known == files_.end()) {
        if (name.find('/') != std::string_view::npos) return nullptr;
        std::optional<WavFile> file = readWavFile(folder_ / (std::string(name) + ".wav"));
        if (!file) return nullptr;
        known = files_.emplace(name, std::make_shared<const WavFile>(*std::move(file))).first;
    }
    return std::make_unique<PulseSound>(connection_, known->second);
}

}
