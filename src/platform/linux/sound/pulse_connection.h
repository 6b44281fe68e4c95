// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include <pulse/context.h>
#include <pulse/glib-mainloop.h>
#include <pulse/proplist.h>
#include <pulse/stream.h>

#include <deque>
#include <memory>

namespace chimewell {

struct ProplistDeleter {
    void operator()(pa_proplist* list) const { pa_proplist_free(list); }
};
using ProplistPointer = std::unique_ptr<pa_proplist, ProplistDeleter>;

/// The application's connection to the sound server. It is opened for the first sound and closed half a
/// minute after the last one, so that an idle application holds no buffers and keeps no server awake. It is
/// also closed when the server leaves a request unanswered for five seconds.
class PulseConnection {
public:
    /// Plays a sound through the connection.
    class Player {
    public:
        virtual ~Player() = default;
        /// The server is ready: creates a stream, and calls `answered` once the server accepted or refused
        /// it. False when none could be created.
        virtual bool start(pa_context& context) = 0;
        /// The server was not reached, went away before `start`, or `start` failed. Calls `remove`.
        virtual void failed() = 0;
    };

    PulseConnection();
    ~PulseConnection();
    PulseConnection(const PulseConnection&) = delete;
    PulseConnection& operator=(const PulseConnection&) = delete;

    /// Starts `player` once, now or when the server is ready, in the order of the calls.
    void enqueue(Player& player);
    /// `player` no longer waits or plays.
    void remove(Player& player);
    /// The server accepted or refused a stream of a player.
    void answered();
    /// Ends a stream in any state and releases it.
    void discard(pa_stream* stream);
    /// Closes the connection: everything that plays or waits has failed. The next player connects again.
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
    pa_context* context_ = nullptr; // owned; null while not connected or connecting
    std::deque<Player*> waiting_;   // for `start`, oldest first
    int playing_ = 0;               // started and not removed
    int unanswered_ = 0;            // streams being created
    QTimer timeout_;                // runs while the server has not answered
    QTimer idle_;                   // runs while nothing plays or waits
};

}
