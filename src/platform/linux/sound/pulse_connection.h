// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include <pulse/context.h>
#include <pulse/glib-mainloop.h>
#include <pulse/stream.h>

#include <deque>
#include <memory>

namespace chimewell {

/// The application's connection to the sound server: made when a sound wants it, closed some time after the
/// last one, so that an idle application holds no buffers and keeps no server awake. A server that leaves a
/// request unanswered for five seconds counts as gone.
class PulseConnection {
public:
    /// Something that plays through the connection.
    class Player {
    public:
        virtual ~Player() = default;
        /// The server is ready. A stream that is created now is reported to `answered` once the server took
        /// or refused it. False when none could be created.
        virtual bool start(pa_context& context) = 0;
        /// The server was not reached, went away before `start`, or `start` failed. The player leaves.
        virtual void failed() = 0;
    };

    PulseConnection();
    ~PulseConnection();
    PulseConnection(const PulseConnection&) = delete;
    PulseConnection& operator=(const PulseConnection&) = delete;

    /// Starts `player` once, now or when the server is ready, in the order of the calls.
    void enqueue(Player& player);
    /// `player` no longer waits, or no longer plays.
    void leave(Player& player);
    /// A stream of a player is no longer being created.
    void answered();
    /// Ends a stream in whatever state it is and releases it.
    void discard(pa_stream* stream);
    /// Closes the connection; all that plays or waits has failed. The next player connects anew.
    void giveUp();

private:
    struct MainloopDeleter {
        void operator()(pa_glib_mainloop* mainloop) const { pa_glib_mainloop_free(mainloop); }
    };

    bool open();
    void close();
    void contextChanged();
    void startWaiting();

    std::unique_ptr<pa_glib_mainloop, MainloopDeleter> mainloop_;
    pa_context* context_ = nullptr; // owned; none while not connected or connecting
    std::deque<Player*> waiting_;   // for `start`, oldest first
    int playing_ = 0;               // started and not left
    int unanswered_ = 0;            // streams being created
    QTimer patience_;               // runs while the server owes an answer
    QTimer idle_;                   // runs while nothing plays or waits
};

}
