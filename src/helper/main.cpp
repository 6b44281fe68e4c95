// SPDX-License-Identifier: MIT
// The program that the agents run on each hook: it turns what they report into an event URL and hands that to
// the application. Agents wait for it and read its output and status, so whatever happens it soon ends with
// status 0 and says nothing.

#include "helper/agent_input.h"
#include "helper/deliver.h"
#include "helper/hook_event.h"
#include "helper/system.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <exception>
#include <optional>
#include <span>

namespace chimewell {

namespace {

// Since the start of the program. The event leaves with what is known at the first one.
constexpr std::chrono::milliseconds inputLimit{600};
constexpr std::chrono::milliseconds deliveryLimit{800};
constexpr std::chrono::milliseconds wholeLimit{900};

constexpr std::size_t maxPayloadBytes = std::size_t{64} << 20;

constexpr std::size_t firstWindow = 2048;
using Buffer = std::array<char, 65536>;

[[noreturn]] void leave()
{
    _exit(0);
}

void leaveAtLimit()
{
    std::signal(SIGALRM, [](int) { leave(); });
    sigset_t alarm;
    sigemptyset(&alarm);
    sigaddset(&alarm, SIGALRM);
    sigprocmask(SIG_UNBLOCK, &alarm, nullptr);
    const itimerval limit{.it_interval = {},
                          .it_value = {.tv_sec = 0, .tv_usec = wholeLimit / std::chrono::microseconds(1)}};
    setitimer(ITIMER_REAL, &limit, nullptr);
}

/// A stream that the agent closed must not be taken for the first socket that we open.
void occupyStandardStreams()
{
    int descriptor = 0;
    do
        descriptor = open("/dev/null", O_RDWR | O_CLOEXEC);
    while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0) close(descriptor);
}

/// 0 at the end of the input and when it cannot be read.
std::size_t readInput(std::span<char> into)
{
    for (;;) {
        const ssize_t count = read(STDIN_FILENO, into.data(), into.size());
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno == EAGAIN) { // somebody made it non-blocking
            pollfd entry{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
            poll(&entry, 1, -1);
        } else if (errno != EINTR) {
            return 0;
        }
    }
}

/// Feeds `payload` from standard input until it knows enough. False if the input has ended.
bool readPayload(PayloadReader& payload, Buffer& buffer, Deadline deadline)
{
    std::size_t kept = 0; // what the reader left of the last window, in front of the next one
    for (std::size_t total = 0; payload.wantsMore() && total < maxPayloadBytes;) {
        if (!waitFor(STDIN_FILENO, POLLIN, deadline)) return true;
        // Agents put what we need first: then the rest is not even parsed.
        const std::size_t room = total == 0 ? firstWindow : buffer.size() - kept;
        const std::size_t count = readInput(std::span(buffer).subspan(kept, room));
        const std::string_view window(buffer.data(), kept + count);
        const std::size_t used = payload.feed(window, count == 0);
        if (count == 0) return false;
        kept = window.size() - used;
        std::memmove(buffer.data(), buffer.data() + used, kept);
        total += count;
    }
    return true;
}

bool mayStartApplication(CanonicalEvent event)
{
    return event != CanonicalEvent::userActed && event != CanonicalEvent::subagentFinished;
}

void run(std::span<const char* const> arguments, const Environment& environment, Deadline start)
{
    static Buffer buffer;
    bool inputIsOpen = true;
    if (const auto invocation = parseInvocation(arguments)) {
        PayloadReader reader(*invocation);
        if (invocation->payloadIsArgument) {
            reader.feed(invocation->payload, true);
            inputIsOpen = false;
        } else {
            inputIsOpen = readPayload(reader, buffer, start + inputLimit);
        }
        const auto url =
            eventUrlFor(*invocation, reader.payload(), environment, std::chrono::system_clock::now());
        if (url) deliver(*url, mayStartApplication(invocation->event), environment, start + deliveryLimit);
    }
    // An agent that writes into a closed pipe may crash.
    while (inputIsOpen)
        inputIsOpen = readInput(buffer) != 0;
}

}

}

int main(int argc, char** argv, char** environment)
{
    using namespace chimewell;
    const Deadline start = std::chrono::steady_clock::now();
    std::set_terminate(leave);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);
    leaveAtLimit();
    occupyStandardStreams();
    if (argc > 0)
        run(std::span<const char* const>(argv + 1, static_cast<std::size_t>(argc) - 1),
            Environment(environment), start);
    leave();
}
