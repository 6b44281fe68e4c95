// SPDX-License-Identifier: MIT
// The running application, next to the least that Qt offers of the same. To be run on a bus and a screen of
// its own: it is the notification server and the tray there, and writes the settings file of its HOME.
//
//   application_benchmark APPLICATION BARE_TRAY_ICON BARE_RECEIVER [--quick] [PART...]
//
// PART is one of start, idle, latency, storm and memory; without any, all are measured. The status is 1 if a
// goal was missed, but with --quick, which only shows that everything runs.
//
// Idle, the application and the bare icon run at the same time; everything else is measured one after the
// other. Proportional memory therefore compares only within its own table.

#include "desktop_services.h"
#include "event_sender.h"
#include "program.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::benchmark {

namespace {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::duration<double, std::milli>;
using Command = std::vector<std::string>;

const QString applicationName = QStringLiteral("app.chimewell.Chimewell");

struct Sizes {
    /// Half a minute after it drew the icon, Qt empties its cache of pixmaps; later nothing is left to do.
    std::chrono::seconds settling = 40s;
    std::chrono::seconds idle = 60s;
    int starts = 7;
    std::size_t latencyEvents = 1'000;
    std::size_t stormEvents = 10'000;
    std::size_t longStormEvents = 100'000;
    std::chrono::seconds forgetting = 95s; ///< Longer than anything about a session is remembered.
};

constexpr Sizes quick{.settling = 1s,
                      .idle = 5s,
                      .starts = 3,
                      .latencyEvents = 200,
                      .stormEvents = 2'000,
                      .longStormEvents = 10'000,
                      .forgetting = 1s};

/// How each alert ends is what a measurement is about, so it says what is switched on.
struct Alerts {
    bool banner = true;
    bool sound = false;
};

void writeSettings(Alerts alerts)
{
    const char* const data = std::getenv("XDG_DATA_HOME");
    const auto folder = std::filesystem::path(data ? data : "") / "Chimewell";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "settings.json")
        << R"({"schemaVersion": 1, "hasCompletedOnboarding": true, "events": [{"event": "finished", "enabled": true, )"
        << R"("soundId": ")" << (alerts.sound ? "Blow" : "none") << R"(", "showPopup": )"
        << (alerts.banner ? "true" : "false") << R"(, "speak": false}]})";
}

/// Runs the event loop until `done`; false when that takes longer than `limit`.
bool runUntil(const std::function<bool()>& done, std::chrono::milliseconds limit)
{
    const auto end = SteadyClock::now() + limit;
    QTimer waker; // ends the last wait below
    waker.start(limit);
    while (!done()) {
        if (SteadyClock::now() >= end) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void runFor(std::chrono::milliseconds time)
{
    runUntil([] { return false; }, time);
}

double quantile(std::vector<double> values, double share)
{
    std::ranges::sort(values);
    return values.at(static_cast<std::size_t>(share * static_cast<double>(values.size() - 1)));
}

void heading(const char* text)
{
    std::printf("\n%-44s %12s %12s %8s   %s\n", text, "Chimewell", "bare Qt", "ratio", "goal");
}

struct Goal {
    enum class Kind : std::uint8_t { none, zero, below, atMost, ratioAtMost, ratioAtLeast };
    Kind kind = Kind::none;
    double limit = 0;
};

constexpr Goal noGoal;
constexpr Goal zero{.kind = Goal::Kind::zero};
constexpr Goal belowTwo{.kind = Goal::Kind::below, .limit = 2};

constexpr Goal ratioAtMost(double limit)
{
    return {.kind = Goal::Kind::ratioAtMost, .limit = limit};
}

constexpr Goal halfTheRate{.kind = Goal::Kind::ratioAtLeast, .limit = 0.5};

/// Prints the goal, and tells whether it is met by figures that are shown with so many digits.
bool isMet(const Goal& goal, double ours, std::optional<double> theirs, int digits)
{
    const double ratio = ours / theirs.value_or(1);
    switch (goal.kind) {
    case Goal::Kind::none:
        return true;
    case Goal::Kind::zero:
        std::printf("0");
        return ours * std::pow(10, digits) < 0.5;
    case Goal::Kind::below:
        std::printf("< %g", goal.limit);
        return ours < goal.limit;
    case Goal::Kind::atMost:
        std::printf("<= %.0f", goal.limit);
        return ours <= goal.limit;
    case Goal::Kind::ratioAtMost:
        std::printf("ratio <= %g", goal.limit);
        return ratio <= goal.limit;
    case Goal::Kind::ratioAtLeast:
        std::printf("ratio >= %g", goal.limit);
        return ratio >= goal.limit;
    }
    return false;
}

int missedGoals = 0;

void row(const char* what, double ours, std::optional<double> theirs, const Goal& goal, int digits)
{
    std::printf("%-44s %12.*f ", what, digits, ours);
    if (theirs)
        std::printf("%12.*f ", digits, *theirs);
    else
        std::printf("%12s ", "");
    if (theirs && *theirs > 0)
        std::printf("%8.2f", ours / *theirs);
    else
        std::printf("%8s", "");
    std::printf("   ");
    const bool isGood = isMet(goal, ours, theirs, digits);
    std::printf(isGood ? "\n" : "  MISSED\n");
    missedGoals += isGood ? 0 : 1;
    std::fflush(stdout);
}

class Benchmark {
public:
    Benchmark(Command application, Command bareIcon, std::string bareReceiver, Sizes sizes)
        : application_(std::move(application)),
          bareIcon_(std::move(bareIcon)),
          bareReceiver_{bareReceiver},
          notifyingReceiver_{std::move(bareReceiver), "--notify"},
          sizes_(sizes)
    {
        QObject::connect(&owner_, &QDBusServiceWatcher::serviceRegistered, &owner_,
                         [this] { namedAt_ = SteadyClock::now(); });
    }

    /// Only the named parts, all of them if none is named.
    void run(const std::vector<std::string>& names)
    {
        struct Part {
            const char* name;
            void (Benchmark::*measure)();
        };
        for (const auto& [name, measure] :
             {Part{"start", &Benchmark::start}, Part{"idle", &Benchmark::idle},
              Part{"latency", &Benchmark::latency}, Part{"storm", &Benchmark::stormRates},
              Part{"memory", &Benchmark::memory}}) {
            if (!names.empty() && std::ranges::find(names, name) == names.end()) continue;
            writeSettings({});
            (this->*measure)();
        }
    }

private:
    struct Start {
        double named = 0;
        double registered = 0;
        double processor = 0;
    };
    struct Idle {
        Memory memory;
        Activity before;
        Activity after;
    };
    struct Delivery {
        double rate = 0;
        std::size_t lost = 0;
        std::size_t banners = 0;
    };

    void await(const char* what, const std::function<bool()>& done)
    {
        if (runUntil(done, 20s)) return;
        std::fprintf(stderr, "waited in vain for %s\n", what);
        std::exit(1);
    }

    void awaitName()
    {
        await("the application's name", [this] { return namedAt_.has_value(); });
    }

    /// From the end of one program on the bus forgets its name; the next one may then take it.
    void awaitNoName()
    {
        await("the name to be free",
              [this] { return !bus_.interface()->isServiceRegistered(applicationName).value(); });
        namedAt_.reset();
        tray_.takeRegistration();
    }

    Start startOnce(const Command& command, bool takesName)
    {
        Start result;
        {
            const Program program(command);
            std::optional<SteadyClock::time_point> registeredAt;
            await("the icon", [&] { return (registeredAt = tray_.takeRegistration()).has_value(); });
            if (takesName) {
                awaitName();
                result.named = Milliseconds(*namedAt_ - program.startedAt()).count();
            }
            result.registered = Milliseconds(*registeredAt - program.startedAt()).count();
            runFor(500ms); // what a start ends with
            result.processor = Milliseconds(program.activity().processor).count();
        }
        awaitNoName();
        return result;
    }

    void start()
    {
        startOnce(application_, true); // both programs and their libraries are in memory from now on
        startOnce(bareIcon_, false);
        std::vector<Start> ours;
        std::vector<Start> theirs;
        for (int round = 0; round < sizes_.starts; ++round) {
            ours.push_back(startOnce(application_, true));
            theirs.push_back(startOnce(bareIcon_, false));
        }
        const auto median = [](const std::vector<Start>& starts, double Start::* figure) {
            std::vector<double> values;
            for (const Start& start : starts)
                values.push_back(start.*figure);
            return quantile(values, 0.5);
        };
        heading("Start, ms, median");
        row("process to name on the bus", median(ours, &Start::named), std::nullopt, noGoal, 1);
        row("process to icon in the tray", median(ours, &Start::registered),
            median(theirs, &Start::registered), ratioAtMost(1.5), 1);
        row("processor time", median(ours, &Start::processor), median(theirs, &Start::processor), noGoal, 1);
    }

    /// Both at once, so that each shares the pages of the libraries with as many others.
    void idle()
    {
        Idle ours;
        Idle theirs;
        {
            const auto start = [this](const Command& command) {
                auto program = std::make_unique<Program>(command);
                await("the icon", [this] { return tray_.takeRegistration().has_value(); });
                return program;
            };
            const auto bareIcon = start(bareIcon_);
            const auto application = start(application_);
            runFor(sizes_.settling);
            theirs = {.memory = bareIcon->memory(), .before = bareIcon->activity(), .after = {}};
            ours = {.memory = application->memory(), .before = application->activity(), .after = {}};
            runFor(sizes_.idle);
            ours.after = application->activity();
            theirs.after = bareIcon->activity();
        }
        awaitNoName();
        const auto switches = [](const Idle& idle) {
            return static_cast<double>(idle.after.switches - idle.before.switches);
        };
        const auto processor = [](const Idle& idle) {
            return Milliseconds(idle.after.processor - idle.before.processor).count();
        };
        const auto kB = [](long value) { return static_cast<double>(value); };
        heading(("Idle for " + std::to_string(sizes_.idle.count()) + " s, no window opened").c_str());
        row("context switches", switches(ours), switches(theirs), zero, 0);
        row("processor time, ms", processor(ours), processor(theirs), zero, 2);
        row("threads", static_cast<double>(ours.after.threads), static_cast<double>(theirs.after.threads),
            noGoal, 0);
        row("proportional memory, kB", kB(ours.memory.proportional), kB(theirs.memory.proportional),
            ratioAtMost(1.3), 0);
        row("private dirty memory, kB", kB(ours.memory.privateDirty), kB(theirs.memory.privateDirty),
            ratioAtMost(2), 0);
        row("resident memory, kB", kB(ours.memory.resident), kB(theirs.memory.resident), ratioAtMost(1.5), 0);
    }

    std::vector<double> latencyOf(const Command& command)
    {
        std::vector<double> times;
        {
            const Program program(command);
            awaitName();
            runFor(1s);
            EventSender sender;
            constexpr int warmUp = 20;
            for (std::size_t event = 0; event < sizes_.latencyEvents + warmUp; ++event) {
                const std::string url = eventUrl("finished");
                const std::size_t banners = notifications_.banners();
                const auto sentAt = SteadyClock::now();
                sender.open(url);
                await("a banner", [&] { return notifications_.banners() > banners; });
                const auto took = notifications_.lastBannerAt() - sentAt;
                if (event >= warmUp) times.push_back(Milliseconds(took).count());
                sender.awaitAnswers();
            }
        }
        awaitNoName();
        return times;
    }

    void latency()
    {
        writeSettings({});
        const std::vector<double> silent = latencyOf(application_);
        writeSettings({.sound = true});
        const std::vector<double> sounding = latencyOf(application_);
        const std::vector<double> theirs = latencyOf(notifyingReceiver_);
        heading("URL on the bus to banner on the bus, ms");
        row("median", quantile(silent, 0.5), quantile(theirs, 0.5), belowTwo, 3);
        row("99 of 100", quantile(silent, 0.99), quantile(theirs, 0.99), noGoal, 3);
        row("median, with sound", quantile(sounding, 0.5), std::nullopt, belowTwo, 3);
        row("99 of 100, with sound", quantile(sounding, 0.99), std::nullopt, noGoal, 3);
    }

    /// The storm runs beside our event loop, which answers the banners meanwhile.
    StormResult runStorm(std::size_t events, std::size_t senders)
    {
        bool finished = false;
        std::future<StormResult> result = std::async(std::launch::async, [&] {
            const StormResult stormed = storm(events, senders);
            QMetaObject::invokeMethod(qApp, [&] { finished = true; }, Qt::QueuedConnection);
            return stormed;
        });
        while (!finished)
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        return result.get();
    }

    Delivery deliver(const Command& command, std::size_t senders)
    {
        Delivery result;
        {
            const Program program(command);
            awaitName();
            runFor(1s);
            runStorm(200, 1);
            const std::size_t banners = notifications_.banners();
            const StormResult stormed = runStorm(sizes_.stormEvents, senders);
            runFor(500ms); // the last banners
            result = {.rate = static_cast<double>(stormed.accepted) / stormed.took.count(),
                      .lost = sizes_.stormEvents - stormed.accepted,
                      .banners = notifications_.banners() - banners};
        }
        awaitNoName();
        return result;
    }

    void stormRates()
    {
        heading((std::to_string(sizes_.stormEvents) + " events at once").c_str());
        for (const std::size_t senders : {1U, 16U}) {
            const std::string from = senders == 1 ? ", 1 sender" : ", 16 senders";
            const Delivery bare = deliver(bareReceiver_, senders);
            const Delivery bareNotifying = deliver(notifyingReceiver_, senders);
            writeSettings({.banner = false});
            const Delivery plain = deliver(application_, senders);
            writeSettings({});
            const Delivery notifying = deliver(application_, senders);
            row(("events a second" + from).c_str(), plain.rate, bare.rate, halfTheRate, 0);
            row(("events a second, banners on" + from).c_str(), notifying.rate, bareNotifying.rate,
                halfTheRate, 0);
            row(("lost" + from).c_str(), static_cast<double>(plain.lost + notifying.lost),
                static_cast<double>(bare.lost + bareNotifying.lost), zero, 0);
            row(("banners that arrived" + from).c_str(), static_cast<double>(notifying.banners),
                static_cast<double>(bareNotifying.banners), noGoal, 0);
        }
    }

    std::vector<Memory> memoryOf(const Command& command)
    {
        std::vector<Memory> states;
        {
            const Program program(command);
            awaitName();
            runFor(1s);
            runStorm(1, 1);
            const auto note = [&](std::chrono::milliseconds rest) {
                runFor(rest);
                states.push_back(program.memory());
            };
            note(1s);
            for (const std::size_t events :
                 {sizes_.stormEvents, sizes_.longStormEvents, sizes_.longStormEvents}) {
                runStorm(events, 16);
                note(1s);
            }
            runFor(sizes_.forgetting);
            runStorm(1, 1);
            note(1s);
        }
        awaitNoName();
        return states;
    }

    void memory()
    {
        writeSettings({});
        const std::vector<Memory> ours = memoryOf(application_);
        const std::vector<Memory> theirs = memoryOf(notifyingReceiver_);
        const std::vector<std::string> moments = {
            "after the first event", "after " + std::to_string(sizes_.stormEvents),
            "after " + std::to_string(sizes_.longStormEvents) + " more",
            "after " + std::to_string(sizes_.longStormEvents) + " more again",
            std::to_string(sizes_.forgetting.count()) + " s and one event later"};
        heading("Private dirty memory in a storm, kB");
        for (std::size_t i = 0; i < moments.size(); ++i) {
            // Every table is full after the first of the long storms.
            const Goal noGrowth{.kind = Goal::Kind::atMost,
                                .limit = 1.05 * static_cast<double>(ours[2].privateDirty)};
            row(moments[i].c_str(), static_cast<double>(ours[i].privateDirty),
                static_cast<double>(theirs[i].privateDirty), i > 2 ? noGrowth : noGoal, 0);
        }
        heading("Proportional memory in a storm, kB");
        for (std::size_t i = 0; i < moments.size(); ++i)
            row(moments[i].c_str(), static_cast<double>(ours[i].proportional),
                static_cast<double>(theirs[i].proportional), noGoal, 0);
    }

    Command application_;
    Command bareIcon_;
    Command bareReceiver_;
    Command notifyingReceiver_;
    Sizes sizes_;
    QDBusConnection bus_ = QDBusConnection::sessionBus();
    NotificationServer notifications_{bus_};
    TrayServer tray_{bus_};
    QDBusServiceWatcher owner_{applicationName, bus_, QDBusServiceWatcher::WatchForRegistration};
    std::optional<SteadyClock::time_point> namedAt_;
};

}

}

int main(int argc, char** argv)
{
    using namespace chimewell::benchmark;
    const QCoreApplication qt(argc, argv);
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool isQuick = std::erase(arguments, "--quick") > 0;
    if (arguments.size() < 3) {
        std::fputs("application_benchmark APPLICATION BARE_TRAY_ICON BARE_RECEIVER [--quick] [PART...]\n",
                   stderr);
        return 2;
    }
    Benchmark({arguments[0]}, {arguments[1]}, arguments[2], isQuick ? quick : Sizes{})
        .run({arguments.begin() + 3, arguments.end()});
    return isQuick || missedGoals == 0 ? 0 : 1;
}
