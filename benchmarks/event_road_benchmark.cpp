// SPDX-License-Identifier: MIT
// The road of one event inside the process, behind the bus and before the adapters: the URL is read, the
// router decides, and ports that do nothing take the alerts. Every event is a session of its own, ten
// thousand of them a second by the clock that is handed in, so that what is remembered of sessions is always
// full.

#include "agent_inputs.h"
#include "core/services.h"
#include "support/fake_system.h"
#include "values/event_payload.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include <malloc.h>

namespace {

using namespace chimewell;
using benchmarks::eventUrl;
using namespace std::chrono_literals;

class SteppingClock final : public Clock {
public:
    Date now() const override { return {}; }
    Instant instant() const override { return instant_; }
    void step() { instant_ += 100us; }

private:
    Instant instant_{1h};
};

class NoTimers final : public Timers {
public:
    std::unique_ptr<Timer> once(std::chrono::nanoseconds, std::function<void()>) override
    {
        return std::make_unique<Timer>();
    }
};

class MuteSounds final : public SystemSounds {
public:
    std::unique_ptr<Sound> named(std::string_view) override { return std::make_unique<MuteSound>(); }

private:
    class MuteSound final : public Sound {
    public:
        void play() override {}
        void stop() override {}
        bool isPlaying() const override { return false; }
    };
};

class NoBanners final : public test::RecordingNotificationCenter {
public:
    void post(const NotificationRequest& request) override { benchmark::DoNotOptimize(&request); }
};

/// The core on a system that keeps nothing of the alerts.
struct Road {
    SteppingClock clock;
    NoTimers timers;
    MuteSounds sounds;
    NoBanners center;
    test::FakeSystem rest;
    Services services{{.files = rest.files,
                       .clock = clock,
                       .timers = timers,
                       .random = rest.random,
                       .locale = rest.locale,
                       .translator = rest.translator,
                       .folders = rest.home,
                       .resources = rest.resources,
                       .sounds = sounds,
                       .speech = rest.speech,
                       .notifications = center,
                       .workspace = rest.workspace,
                       .loginItem = rest.loginItem,
                       .activation = rest.activation}};
    EventRouter& router = services.router;
};

void reading(benchmark::State& state)
{
    const std::string url = eventUrl("finished", 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(parseEventUrl(url));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(reading)->Name("read a URL of 600 bytes");

void road(benchmark::State& state, std::string_view type)
{
    Road road;
    std::size_t session = 0;
    auto payload = parseEventUrl(eventUrl(type, 0));
    for (auto _ : state) {
        payload->session = std::to_string(++session);
        road.router.handle(*payload);
        road.clock.step();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(road, finished, "finished")->Name("route finished");
BENCHMARK_CAPTURE(road, waiting, "waiting_input")->Name("route waiting_input");

/// What the heap holds more than before the first event.
void growth(benchmark::State& state)
{
    constexpr std::size_t events = 100'000;
    for (auto _ : state) {
        Road road;
        const auto inUse = [] { return static_cast<double>(mallinfo2().uordblks) / 1024; };
        const double before = inUse();
        std::size_t session = 0;
        const auto storm = [&] {
            for (std::size_t event = 0; event < events; ++event) {
                const char* const type = event % 2 == 0 ? "finished" : "waiting_input";
                if (const auto payload = parseEventUrl(eventUrl(type, ++session)))
                    road.router.handle(*payload);
                road.clock.step();
            }
            return inUse() - before;
        };
        state.counters["kB_after_100000"] = storm();
        state.counters["kB_after_200000"] = storm();
    }
    state.SetItemsProcessed(state.iterations() * 2 * static_cast<std::int64_t>(events));
}
BENCHMARK(growth)->Name("read and route 200000 sessions")->Iterations(1)->Unit(benchmark::kMillisecond);

}

BENCHMARK_MAIN();
