// SPDX-License-Identifier: MIT
#include "platform/linux/sound/pulse_sound.h"

#include <pulse/proplist.h>
#include <pulse/sample.h>

#include <chrono>
#include <utility>

namespace chimewell {
namespace {

using namespace std::chrono_literals;

/// How long after its last sample a sound may still count as playing when the server tells nothing: far more
/// than any device buffers.
constexpr auto overdueAfter = 2s;

/// What the server buffers towards the device. Small, so that `stop` is heard at once.
constexpr auto bufferedTime = 100ms;

struct ProplistDeleter {
    void operator()(pa_proplist* list) const { pa_proplist_free(list); }
};

}

PulseSound::PulseSound(std::shared_ptr<PulseConnection> connection, std::shared_ptr<const WavFile> file)
    : connection_(std::move(connection)),
      file_(std::move(file))
{
    overdue_.setSingleShot(true);
    // The stream is stuck at the server, or the server is: start afresh.
    QObject::connect(&overdue_, &QTimer::timeout, &overdue_, [this] { connection_->giveUp(); });
}

PulseSound::~PulseSound()
{
    PulseSound::stop();
}

void PulseSound::play()
{
    if (isPlaying_) return;
    isPlaying_ = true;
    connection_->enqueue(*this);
}

void PulseSound::stop()
{
    if (!isPlaying_) return;
    isPlaying_ = false;
    overdue_.stop();
    drain_.reset();
    if (pa_stream* stream = std::exchange(stream_, nullptr)) connection_->discard(stream);
    connection_->leave(*this);
}

void PulseSound::OperationDeleter::operator()(pa_operation* operation) const
{
    pa_operation_cancel(operation);
    pa_operation_unref(operation);
}

bool PulseSound::start(pa_context& context)
{
    const pa_sample_spec format{
        .format = PA_SAMPLE_S16LE, .rate = file_->framesPerSecond, .channels = file_->channels};
    const std::unique_ptr<pa_proplist, ProplistDeleter> properties(pa_proplist_new());
    pa_proplist_sets(properties.get(), PA_PROP_MEDIA_ROLE, "event");
    stream_ = pa_stream_new_with_proplist(&context, "Alert", &format, nullptr, properties.get());
    if (!stream_) return false;

    constexpr auto serverDefault = static_cast<std::uint32_t>(-1);
    const auto buffered =
        static_cast<pa_usec_t>(std::chrono::duration_cast<std::chrono::microseconds>(bufferedTime).count());
    const pa_buffer_attr buffer{.maxlength = serverDefault,
                                .tlength = static_cast<std::uint32_t>(pa_usec_to_bytes(buffered, &format)),
                                .prebuf = serverDefault,
                                .minreq = serverDefault,
                                .fragsize = serverDefault};
    isAccepted_ = false;
    const auto changed = [](pa_stream*, void* self) { static_cast<PulseSound*>(self)->streamChanged(); };
    pa_stream_set_state_callback(stream_, changed, this);
    return pa_stream_connect_playback(stream_, nullptr, &buffer, PA_STREAM_ADJUST_LATENCY, nullptr,
                                      nullptr) >= 0;
}

void PulseSound::failed()
{
    stop();
}

void PulseSound::streamChanged()
{
    const pa_stream_state_t state = pa_stream_get_state(stream_);
    if (state == PA_STREAM_CREATING) return;
    const bool wasAccepted = std::exchange(isAccepted_, true);
    if (state == PA_STREAM_READY)
        handOver();
    else
        stop();
    if (!wasAccepted) connection_->answered();
}

void PulseSound::handOver()
{
    overdue_.start(file_->duration() + overdueAfter);
    pa_stream_write(stream_, file_->samples.data(), file_->samples.size(), nullptr, 0, PA_SEEK_RELATIVE);
    const auto drained = [](pa_stream*, int, void* self) { static_cast<PulseSound*>(self)->stop(); };
    drain_.reset(pa_stream_drain(stream_, drained, this));
}

}
