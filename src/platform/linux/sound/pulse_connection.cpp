// SPDX-License-Identifier: MIT
#include "platform/linux/sound/pulse_connection.h"

#include "values/shared_names.h"

#include <pulse/proplist.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace chimewell {
namespace {

using namespace std::chrono_literals;

constexpr auto answerTimeout = 5s;
constexpr auto idleTimeout = 30s;
/// No more streams than these are requested before the server answers. So little is queued for a server that
/// hangs, however many sounds are started and stopped in the meantime.
constexpr int maxUnanswered = 8;

}

PulseConnection::PulseConnection()
{
    timeout_.setSingleShot(true);
    idle_.setSingleShot(true);
    QObject::connect(&timeout_, &QTimer::timeout, &timeout_, [this] { giveUp(); });
    QObject::connect(&idle_, &QTimer::timeout, &idle_, [this] { giveUp(); });
}

PulseConnection::~PulseConnection()
{
    close();
}

void PulseConnection::enqueue(Player& player)
{
    idle_.stop();
    waiting_.push_back(&player);
    if (!context_ && !open())
        giveUp();
    else
        startWaiting();
}

void PulseConnection::remove(Player& player)
{
    if (const auto found = std::ranges::find(waiting_, &player); found != waiting_.end())
        waiting_.erase(found);
    else
        --playing_;
    if (context_ && waiting_.empty() && playing_ == 0) idle_.start(idleTimeout);
}

void PulseConnection::answered()
{
    if (!context_) return; // the connection was closed, which also ends streams
    --unanswered_;
    if (unanswered_ == 0)
        timeout_.stop();
    else
        timeout_.start(answerTimeout);
    startWaiting();
}

void PulseConnection::discard(pa_stream* stream)
{
    if (pa_stream_get_state(stream) != PA_STREAM_CREATING) {
        pa_stream_set_state_callback(stream, nullptr, nullptr);
        pa_stream_disconnect(stream);
        pa_stream_unref(stream);
        return;
    }
    // The library cannot end a stream before the server has answered for it.
    const auto end = [](pa_stream* created, void* self) {
        static_cast<PulseConnection*>(self)->discard(created);
        static_cast<PulseConnection*>(self)->answered();
    };
    pa_stream_set_state_callback(stream, end, this);
}

void PulseConnection::giveUp()
{
    close();
    while (!waiting_.empty())
        waiting_.front()->failed(); // which removes it
}

bool PulseConnection::open()
{
    if (!mainloop_) mainloop_.reset(pa_glib_mainloop_new(nullptr));
    const ProplistPointer properties(pa_proplist_new());
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_NAME, "Chimewell");
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ID, applicationId);
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ICON_NAME, applicationId);
    context_ =
        pa_context_new_with_proplist(pa_glib_mainloop_get_api(mainloop_.get()), nullptr, properties.get());
    if (!context_) return false;
    const auto changed = [](pa_context*, void* self) {
        static_cast<PulseConnection*>(self)->contextChanged();
    };
    pa_context_set_state_callback(context_, changed, this);
    timeout_.start(answerTimeout);
    // Starting a server would block until it runs. Desktops start theirs with the session.
    return pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0;
}

void PulseConnection::close()
{
    timeout_.stop();
    idle_.stop();
    if (pa_context* context = std::exchange(context_, nullptr)) {
        pa_context_set_state_callback(context, nullptr, nullptr);
        pa_context_disconnect(context); // calls the state callback of every stream
        pa_context_unref(context);
    }
    unanswered_ = 0;
}

void PulseConnection::contextChanged()
{
    const pa_context_state_t state = pa_context_get_state(context_);
    if (state == PA_CONTEXT_READY) {
        timeout_.stop();
        startWaiting();
    } else if (!PA_CONTEXT_IS_GOOD(state)) {
        giveUp();
    }
}

void PulseConnection::startWaiting()
{
    while (context_ && pa_context_get_state(context_) == PA_CONTEXT_READY && !waiting_.empty() &&
           unanswered_ < maxUnanswered) {
        Player* const player = waiting_.front();
        waiting_.pop_front();
        ++playing_;
        if (player->start(*context_)) {
            ++unanswered_;
            if (!timeout_.isActive()) timeout_.start(answerTimeout);
        } else {
            player->failed();
        }
    }
}

}
