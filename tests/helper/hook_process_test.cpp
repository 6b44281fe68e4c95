// SPDX-License-Identifier: MIT
// The real program, the way the agents run it, on a bus of the test's own.

#include "helper/recorded_bus.h"
#include "values/shared_names.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <csignal>
#include <cstring>
#include <string>
#include <vector>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;

const std::vector<std::string> finished = {"claude", "finished"};
const std::vector<std::string> userActed = {"claude", "user_acted"};

std::string payload(const std::string& session)
{
    return R"({"session_id":")" + session + R"(","cwd":"/c"})" + "\n";
}

bool isFor(const std::string& url, const std::string& session)
{
    return url.find("&session=" + session + "&cwd=%2Fc&") != std::string::npos;
}

/// What agents rely on, always: status 0, not a word, soon, and no stream held by anybody.
void expectQuiet(const Finished& hook)
{
    EXPECT_EQ(hook.status, 0);
    EXPECT_EQ(hook.output, "");
    // Its own limit is 0.9 s; a busy machine gets more.
    EXPECT_LT(hook.took, 5s);
}

class HookProcess : public testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
    }

    RecordedBus bus;
};

TEST_F(HookProcess, DeliversToARunningApplication)
{
    const auto recorder = bus.startRecorder();
    ASSERT_TRUE(recorder);
    for (std::size_t length = 1; length <= 8; ++length) { // every alignment in the message
        const std::string session(length, 'S');
        const Finished claude = runHook(finished, bus.environment(), {.text = payload(session)});
        expectQuiet(claude);
        EXPECT_TRUE(claude.tookAllInput);
        EXPECT_TRUE(isFor(bus.nextRecord(), session));
    }

    const std::string argument = R"({"type":"agent-turn-complete","thread-id":"T","cwd":"/c"})";
    expectQuiet(runHook({"codex-notify", argument}, bus.environment(), {.isClosed = true}));
    EXPECT_TRUE(isFor(bus.nextRecord(), "T"));

    expectQuiet(runHook({"cursor", "finished"}, bus.environment(),
                        {.text = R"({"conversation_id":"C","workspace_roots":["/c"]})"}));
    EXPECT_TRUE(isFor(bus.nextRecord(), "C"));
}

TEST_F(HookProcess, DeliversWhateverTheInputDoes)
{
    const auto recorder = bus.startRecorder();
    ASSERT_TRUE(recorder);
    const std::string large =
        R"({"tool_input":")" + std::string(10 << 20, 'x') + R"(","session_id":"S","cwd":"/c"})";
    const std::string hostile = R"({"session_id":"S","cwd":7,"deep":)" + std::string(10 << 20, '[');
    for (const Input& input : {
             Input{.isClosed = true},
             Input{},
             Input{.text = large},
             Input{.text = hostile},
             Input{.text = payload("S"), .then = Input::Then::silence},
             Input{.text = R"({"session_id":"S")", .then = Input::Then::silence},
             Input{.text = std::string(1 << 16, ' '), .then = Input::Then::moreWithoutEnd},
         }) {
        SCOPED_TRACE(input.text.substr(0, 40));
        const Finished hook = runHook(finished, bus.environment(), input);
        expectQuiet(hook);
        EXPECT_TRUE(hook.tookAllInput || input.isClosed);
        const std::string url = bus.nextRecord();
        EXPECT_TRUE(url.starts_with("chimewell://event?type=finished&provider=claude&")) << url;
        const bool knowsSession = input.text.find("session_id") != std::string::npos;
        EXPECT_EQ(url.find("&session=S&") != std::string::npos, knowsSession) << url;
    }
}

TEST_F(HookProcess, TakesTheInputOfACommandThatItDoesNotKnow)
{
    const Finished hook =
        runHook({"claude", "unheard_of"}, bus.environment(), {.text = std::string(1 << 20, 'x')});
    expectQuiet(hook);
    EXPECT_TRUE(hook.tookAllInput);
}

TEST_F(HookProcess, IsNotHeldByAStoppedApplicationOrBusAndLosesNothing)
{
    const auto recorder = bus.startRecorder();
    ASSERT_TRUE(recorder);
    recorder->raise(SIGSTOP);
    for (const char* const session : {"1", "2"})
        expectQuiet(runHook(finished, bus.environment(), {.text = payload(session)}));
    recorder->raise(SIGCONT);
    bus.raise("dbus-daemon", SIGSTOP);
    const Finished hook = runHook(userActed, bus.environment(), {.text = payload("3")});
    bus.raise("dbus-daemon", SIGCONT);
    expectQuiet(hook);
    for (const char* const session : {"1", "2", "3"})
        EXPECT_TRUE(isFor(bus.nextRecord(), session)) << session;
}

TEST(HookProcessWithoutBus, GivesUp)
{
    const TemporaryFolder own;
    const std::string folder = own.path();
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    std::strncpy(address.sun_path, (folder + "/mute").c_str(), sizeof address.sun_path - 1);
    const FileDescriptor mute(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    ASSERT_TRUE(mute.isOpen());
    ASSERT_EQ(bind(mute.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(mute.get(), 5), 0);

    for (const std::string& variable : {"XDG_RUNTIME_DIR=" + folder + "/nowhere",
                                        "DBUS_SESSION_BUS_ADDRESS=unix:path=" + folder + "/nowhere",
                                        std::string("DBUS_SESSION_BUS_ADDRESS=tcp:host=localhost,port=1"),
                                        // accepts, and never answers
                                        "DBUS_SESSION_BUS_ADDRESS=unix:path=" + folder + "/mute"}) {
        SCOPED_TRACE(variable);
        expectQuiet(runHook(finished, {variable}, {.text = payload("S")}));
    }
}

TEST_F(HookProcess, StartsTheApplicationForAlertsOnlyAndLosesNone)
{
    bus.offer(applicationId, bus.recorder());
    for (const std::string silent : {"user_acted", "subagent_finished"})
        expectQuiet(runHook({"claude", silent}, bus.environment(), {.text = payload("silent")}));
    const std::vector<std::string> alerts = {"waiting_input", "finished", "error", "finished", "finished"};
    for (const std::string& loud : alerts)
        expectQuiet(runHook({"claude", loud}, bus.environment(), {.text = payload("loud")}));
    EXPECT_EQ(bus.nextRecord(), "ready");
    for (const std::string& loud : alerts)
        EXPECT_TRUE(isFor(bus.nextRecord(), "loud")) << loud;
}

TEST_F(HookProcess, DoesNotStartAnApplicationThatTheUserQuit)
{
    bus.offer(applicationId, bus.recorder());
    auto environment = bus.environment();
    for (const char* const data : {".local/share", "data"}) {
        const auto file =
            bus.folder.write(std::filesystem::path(data) / applicationFolderName / dormantMarkerName, "\n");
        expectQuiet(runHook(finished, environment, {.text = payload("silent")}));
        std::filesystem::remove(file);
        environment.push_back("XDG_DATA_HOME=" + (bus.folder.path() / "data").string());
    }
    expectQuiet(runHook(finished, environment, {.text = payload("loud")}));
    EXPECT_EQ(bus.nextRecord(), "ready");
    EXPECT_TRUE(isFor(bus.nextRecord(), "loud"));
}

TEST_F(HookProcess, HoldsNeitherTheAgentNorItsStreamsDuringASlowStartAndLosesNothing)
{
    bus.offer(applicationId, "/bin/sh -c \"sleep 3; exec " + bus.recorder() + "\"");
    expectQuiet(runHook(finished, bus.environment(), {.text = payload("S")}));
    // The bus drops the event if its sender, which doesn't wait in the agent's process, has exited by now.
    EXPECT_EQ(bus.nextRecord(), "ready");
    EXPECT_TRUE(isFor(bus.nextRecord(), "S"));
}

}
}
