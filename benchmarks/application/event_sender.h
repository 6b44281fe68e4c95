// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace chimewell::benchmarks {

/// A connection to the session bus that does nothing but call Open, so that the sender is not what is
/// measured. Ends the benchmark with a message when the bus does not answer.
class EventSender {
public:
    EventSender();
    ~EventSender();
    EventSender(const EventSender&) = delete;
    EventSender& operator=(const EventSender&) = delete;

    void open(std::string_view url);
    /// Takes the answers that have come, without waiting.
    void takeAnswers();
    void awaitAnswers();

    std::size_t unanswered() const { return sent_ - accepted_ - refused_; }
    std::size_t accepted() const { return accepted_; }
    std::size_t refused() const { return refused_; } ///< Answered by an error.
    int descriptor() const { return socket_; }

private:
    void write(std::string_view bytes) const;

    int socket_ = -1;
    std::uint32_t serial_ = 0;
    std::string received_;
    std::size_t sent_ = 0;
    std::size_t accepted_ = 0;
    std::size_t refused_ = 0;
};

struct StormResult {
    std::size_t accepted = 0;
    std::chrono::duration<double> took{0};
};

/// Opens `events` URLs from `senders` connections, each with up to 64 unanswered, and waits for the answers.
/// Gives up when none comes for 10 seconds.
StormResult storm(std::size_t events, std::size_t senders);

}
