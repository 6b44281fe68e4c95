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

#include "agent_inputs.h"
#include "desktop_services.h"
#include "event_sender.h"
#include "harness/child_process.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace chimewell::benchmarks {

namespace {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::duration<double, std::milli>;
using Command = std::vector<std::string>;
using test::ChildProcess;

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

/// What a finished event sets off.
void writeSettings(bool banner, bool sound)
{
    const char* const data = std::getenv("XDG_DATA_HOME");
    const auto folder = std::filesystem::path(data ? data : "") / "Chimewell";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "settings.json")
        << R"({"schemaVersion": 1, "hasCompletedOnboarding": true, "events": [{"event": "finished", "enabled": true, )"
        << R"("soundId": ")" << (sound ? "Blow" : "none") << R"(", "showPopup": )"
        << (banner ? "true" : "false") << R"(, "speak": false}]})";
}

/// What the kernel says of a process, in kB. Pages that other processes map too count in part for
/// `proportional` and not at all for `privateDirty`.
struct Memory {
    double resident = 0;
    double proportional = 0;
    double privateDirty = 0;
};

/// Totals since the start, over all threads.
struct Activity {
    std::size_t threads = 0;
    double switches = 0; ///< Context switches, both those asked for and those suffered.
    Milliseconds processor{0};
};

/// The number behind `label` in a file of lines such as "Pss:   120 kB".
double numberIn(const std::filesystem::path& file, std::string_view label)
{
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(label)) return std::strtod(line.c_str() + label.size(), nullptr);
    return 0;
}

Memory memoryOf(const ChildProcess& program)
{
    const auto file = "/proc/" + std::to_string(program.processId()) + "/smaps_rollup";
    return {.resident = numberIn(file, "Rss:"),
            .proportional = numberIn(file, "Pss:"),
            .privateDirty = numberIn(file, "Private_Dirty:")};
}

Activity activityOf(const ChildProcess& program)
{
    Activity total;
    for (const auto& thread :
         std::filesystem::directory_iterator("/proc/" + std::to_string(program.processId()) + "/task")) {
        ++total.threads;
        total.switches += numberIn(thread.path() / "status", "voluntary_ctxt_switches:") +
                          numberIn(thread.path() / "status", "nonvoluntary_ctxt_switches:");
        // Nanoseconds; the first of three numbers.
        total.processor += Milliseconds(numberIn(thread.path() / "schedstat", "") / 1e6);
    }
    return total;
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

void heading(const std::string& text)
{
    std::printf("\n%-44s %12s %12s %8s   %s\n", text.c_str(), "Chimewell", "bare Qt", "ratio", "goal");
}

/// Of a figure that is shown with so many digits, and of its ratio to the bare program's.
struct Goal {
    std::string text;
    std::function<bool(double ours, double ratio)> isMet = [](double, double) { return true; };
};

const Goal noGoal;
const Goal zero{.text = "0", .isMet = [](double ours, double) { return ours < 0.005; }};
const Goal belowTwo{.text = "< 2", .isMet = [](double ours, double) { return ours < 2; }};
const Goal halfTheRate{.text = "ratio >= 0.5", .isMet = [](double, double ratio) { return ratio >= 0.5; }};

Goal ratioAtMost(double limit)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "ratio <= %g", limit);
    return {.text = text.data(), .isMet = [limit](double, double ratio) { return ratio <= limit; }};
}

int missedGoals = 0;

std::string formatted(double value, int digits)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.*f", digits, value);
    return text.data();
}

void row(const std::string& what, double ours, std::optional<double> theirs, const Goal& goal, int digits)
{
    const double ratio = ours / theirs.value_or(1);
    const bool isGood = goal.isMet(ours, ratio);
    missedGoals += isGood ? 0 : 1;
    std::printf("%-44s %12.*f %12s %8s   %s%s\n", what.c_str(), digits, ours,
                theirs ? formatted(*theirs, digits).c_str() : "",
                theirs && *theirs > 0 ? formatted(ratio, 2).c_str() : "", goal.text.c_str(),
                isGood ? "" : "  MISSED");
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
            writeSettings(true, false);
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
            const auto startedAt = SteadyClock::now();
            const ChildProcess program(command);
            std::optional<SteadyClock::time_point> registeredAt;
            await("the icon", [&] { return (registeredAt = tray_.takeRegistration()).has_value(); });
            if (takesName) {
                awaitName();
                result.named = Milliseconds(*namedAt_ - startedAt).count();
            }
            result.registered = Milliseconds(*registeredAt - startedAt).count();
            runFor(500ms); // what a start ends with
            result.processor = activityOf(program).processor.count();
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
                auto program = std::make_unique<ChildProcess>(command);
                await("the icon", [this] { return tray_.takeRegistration().has_value(); });
                return program;
            };
            const auto bareIcon = start(bareIcon_);
            const auto application = start(application_);
            runFor(sizes_.settling);
            theirs = {.memory = memoryOf(*bareIcon), .before = activityOf(*bareIcon), .after = {}};
            ours = {.memory = memoryOf(*application), .before = activityOf(*application), .after = {}};
            runFor(sizes_.idle);
            ours.after = activityOf(*application);
            theirs.after = activityOf(*bareIcon);
        }
        awaitNoName();
        heading("Idle for " + std::to_string(sizes_.idle.count()) + " s, no window opened");
        row("context switches", ours.after.switches - ours.before.switches,
            theirs.after.switches - theirs.before.switches, zero, 0);
        row("processor time, ms", (ours.after.processor - ours.before.processor).count(),
            (theirs.after.processor - theirs.before.processor).count(), zero, 2);
        row("threads", static_cast<double>(ours.after.threads), static_cast<double>(theirs.after.threads),
            noGoal, 0);
        row("proportional memory, kB", ours.memory.proportional, theirs.memory.proportional, ratioAtMost(1.3),
            0);
        row("private dirty memory, kB", ours.memory.privateDirty, theirs.memory.privateDirty, ratioAtMost(2),
            0);
        row("resident memory, kB", ours.memory.resident, theirs.memory.resident, ratioAtMost(1.5), 0);
    }

    std::vector<double> latencyOf(const Command& command)
    {
        std::vector<double> times;
        {
            const ChildProcess program(command);
            awaitName();
            runFor(1s);
            EventSender sender;
            constexpr int warmUp = 20;
            for (std::size_t event = 0; event < sizes_.latencyEvents + warmUp; ++event) {
                const std::string url = eventUrl("finished", ++sessions_);
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
        writeSettings(true, false);
        const std::vector<double> silent = latencyOf(application_);
        writeSettings(true, true);
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
            const ChildProcess program(command);
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
        heading(std::to_string(sizes_.stormEvents) + " events at once");
        for (const std::size_t senders : {1U, 16U}) {
            const std::string from = senders == 1 ? ", 1 sender" : ", 16 senders";
            const Delivery bare = deliver(bareReceiver_, senders);
            const Delivery bareNotifying = deliver(notifyingReceiver_, senders);
            writeSettings(false, false);
            const Delivery plain = deliver(application_, senders);
            writeSettings(true, false);
            const Delivery notifying = deliver(application_, senders);
            row("events a second" + from, plain.rate, bare.rate, halfTheRate, 0);
            row("events a second, banners on" + from, notifying.rate, bareNotifying.rate, halfTheRate, 0);
            row("lost" + from, static_cast<double>(plain.lost + notifying.lost),
                static_cast<double>(bare.lost + bareNotifying.lost), zero, 0);
            row("banners that arrived" + from, static_cast<double>(notifying.banners),
                static_cast<double>(bareNotifying.banners), noGoal, 0);
        }
    }

    std::vector<Memory> memoryInAStormOf(const Command& command)
    {
        std::vector<Memory> states;
        {
            const ChildProcess program(command);
            awaitName();
            runFor(1s);
            runStorm(1, 1);
            const auto note = [&](std::chrono::milliseconds rest) {
                runFor(rest);
                states.push_back(memoryOf(program));
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
        writeSettings(true, false);
        const std::vector<Memory> ours = memoryInAStormOf(application_);
        const std::vector<Memory> theirs = memoryInAStormOf(notifyingReceiver_);
        const std::vector<std::string> moments = {
            "after the first event", "after " + std::to_string(sizes_.stormEvents),
            "after " + std::to_string(sizes_.longStormEvents) + " more",
            "after " + std::to_string(sizes_.longStormEvents) + " more again",
            std::to_string(sizes_.forgetting.count()) + " s and one event later"};
        heading("Private dirty memory in a storm, kB");
        for (std::size_t i = 0; i < moments.size(); ++i) {
            // Every table is full after the first of the long storms.
            const double limit = 1.05 * ours[2].privateDirty;
            const Goal noGrowth{.text = "<= " + formatted(limit, 0),
                                .isMet = [limit](double kilobytes, double) { return kilobytes <= limit; }};
            row(moments[i], ours[i].privateDirty, theirs[i].privateDirty, i > 2 ? noGrowth : noGoal, 0);
        }
        heading("Proportional memory in a storm, kB");
        for (std::size_t i = 0; i < moments.size(); ++i)
            row(moments[i], ours[i].proportional, theirs[i].proportional, noGoal, 0);
    }

    Command application_;
    Command bareIcon_;
    Command bareReceiver_;
    Command notifyingReceiver_;
    Sizes sizes_;
    std::size_t sessions_ = 1'000'000; // not those of the storms
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
    using namespace chimewell::benchmarks;
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
