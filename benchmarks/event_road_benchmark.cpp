// SPDX-License-Identifier: MIT
// The road of one event inside the process, behind the bus and before the adapters: the URL is read, the
// router decides, and ports that do nothing take the alerts. Every event is a session of its own, ten
// thousand of them a second by the clock that is handed in, so that what is remembered of sessions is always
// full.

#include "core/services.h"
#include "values/event_payload.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <malloc.h>

namespace {

using namespace chimewell;
using namespace std::chrono_literals;

class SteppingClock final : public Clock {
public:
    Date now() const override { return {}; }
    Instant instant() const override { return instant_; }
    void step() { instant_ += 100us; }

private:
    Instant instant_{1h};
};

class NoFiles final : public AgentFiles {
public:
    std::expected<std::string, FileError> read(const std::filesystem::path&) override
    {
        return std::unexpected(FileError{.missing = true, .description = {}});
    }
    std::expected<void, FileError> replace(const std::filesystem::path&, std::string_view) override
    {
        return {};
    }
    std::expected<void, FileError> createFolders(const std::filesystem::path&) override { return {}; }
    std::expected<void, FileError> remove(const std::filesystem::path&) override { return {}; }
    std::optional<FileKind> kind(const std::filesystem::path&) override { return std::nullopt; }
    std::expected<void, ExchangeError> exchange(const std::filesystem::path&,
                                                const std::optional<std::string>&, std::string_view) override
    {
        return {};
    }
    std::expected<void, FileError> writeCopy(const std::filesystem::path&, std::string_view,
                                             const std::filesystem::path&) override
    {
        return {};
    }
    std::expected<std::vector<std::string>, FileError> list(const std::filesystem::path&) override
    {
        return {};
    }
};

class NoHome final : public UserFolders {
public:
    std::filesystem::path home() const override { return "/nowhere"; }
    std::optional<std::filesystem::path> applicationSupport() const override { return std::nullopt; }
};

class NoResources final : public Resources {
public:
    std::optional<std::filesystem::path> named(std::string_view) const override { return std::nullopt; }
};

class NoTimers final : public Timers {
public:
    std::unique_ptr<Timer> repeat(std::chrono::milliseconds, std::function<void()>) override
    {
        return std::make_unique<Timer>();
    }
    std::unique_ptr<Timer> once(std::chrono::milliseconds, std::function<void()>) override
    {
        return std::make_unique<Timer>();
    }
};

class OneNumber final : public Random {
public:
    double unit() override { return 0.5; }
    std::string uuid() override { return "00000000-0000-4000-8000-000000000000"; }
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

class MuteSpeech final : public SpeechSynthesizer {
public:
    void speak(const std::string&, const std::optional<std::string>&) override {}
    void listVoices(std::function<void(std::vector<Voice>)> done) override { done({}); }
};

class NoBanners final : public NotificationCenter {
public:
    bool isAvailable() const override { return true; }
    void setResponseHandler(std::function<void(const NotificationResponse&)>) override {}
    void setCategory(const NotificationCategory&) override {}
    void readPermission(std::function<void(NotificationPermission)> done) override
    {
        done(NotificationPermission::authorized);
    }
    void requestPermission(std::function<void()> done) override { done(); }
    void post(const NotificationRequest& request) override { benchmark::DoNotOptimize(&request); }
    void openSystemSettings() override {}
    void setChangeHandler(std::function<void()>) override {}
};

class English final : public UserLocale {
public:
    std::string shortTime(Date) const override { return {}; }
    std::string relativeTime(Date, Date) const override { return {}; }
    std::string shortRelativeTime(Date, Date) const override { return {}; }
};

class EnglishWords final : public Translator {
public:
    std::string translate(const Phrase& phrase) const override { return english(phrase); }
    std::string language() const override { return "en"; }
};

class NoWorkspace final : public Workspace {
public:
    bool isInstalled(const TerminalApplication&) const override { return false; }
    void openActivating(const TerminalApplication&) override {}
    bool activateRunning(const TerminalApplication&) override { return false; }
    void findKind(const std::filesystem::path&, std::function<void(FileKind)>) override {}
    bool openFolder(const std::filesystem::path&) override { return false; }
    void reveal(const std::filesystem::path&) override {}
};

class NoLoginItem final : public LoginItem {
public:
    bool isEnabled() const override { return false; }
    std::expected<void, Phrase> registerItem() override { return {}; }
    std::expected<void, Phrase> unregisterItem() override { return {}; }
};

struct InMenuBar : ApplicationActivation {
    void setPolicy(ActivationPolicy) override {}
    void activate() override {}
};

/// The core behind the event road on a system that does nothing.
struct Road {
    SteppingClock clock;
    NoFiles files;
    NoTimers timers;
    OneNumber random;
    MuteSounds sounds;
    MuteSpeech speech;
    NoBanners center;
    English locale;
    EnglishWords translator;
    NoHome folders;
    NoResources resources;
    NoWorkspace workspace;
    NoLoginItem loginItem;
    InMenuBar activation;
    Services services{{.files = files,
                       .clock = clock,
                       .timers = timers,
                       .random = random,
                       .locale = locale,
                       .translator = translator,
                       .folders = folders,
                       .resources = resources,
                       .sounds = sounds,
                       .speech = speech,
                       .notifications = center,
                       .workspace = workspace,
                       .loginItem = loginItem,
                       .activation = activation}};
    EventRouter& router = services.router;
};

/// 600 bytes, as an agent's hook writes it.
std::string eventUrl(std::string_view type, std::size_t session)
{
    std::string url = "chimewell://event?type=" + std::string(type) +
                      "&provider=claude&session=5eed0000-0000-4000-8000-" +
                      std::to_string(session + 100'000'000'000) +
                      "&cwd=%2Fhome%2Fdev%2Fsrc%2Fproject&term=xterm&ts=1763850000&v=1&message=";
    constexpr std::string_view sentence = "All%20tests%20pass.%20";
    while (url.size() + sentence.size() <= 600)
        url += sentence;
    url.resize(600, '.');
    return url;
}

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
