// SPDX-License-Identifier: MIT
#include "platform/linux/session/freedesktop_application.h"

#include "harness/private_bus.h"
#include "harness/wait_until.h"
#include "platform/linux/freedesktop/dbus_call.h"
#include "values/shared_names.h"

#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace chimewell::test {

class FreedesktopApplicationTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
    }
    FreedesktopApplication::Handlers recording()
    {
        return {.open = [this](const auto& url) { seen.push_back("open " + url.value_or("(none)")); },
                .activate = [this] { seen.emplace_back("activate"); },
                .action = [this](const std::string& name) { seen.push_back("action " + name); }};
    }
    /// Sends the call as another program would and runs until its answer.
    QDBusMessage call(const char* method, const QVariantList& arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            QString::fromLatin1(applicationId), QString::fromLatin1(applicationObjectPath),
            QStringLiteral("org.freedesktop.Application"), QString::fromLatin1(method));
        message.setArguments(arguments);
        std::optional<QDBusMessage> answer;
        callAsync(bus.connection(QStringLiteral("caller")), message, qApp,
                  [&](const QDBusMessage& reply) { answer = reply; });
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        return answer.value_or(QDBusMessage());
    }

    PrivateBus bus;
    std::vector<std::string> seen;
};

TEST_F(FreedesktopApplicationTest, HandsEveryRequestOver)
{
    FreedesktopApplication application(bus.connection(QStringLiteral("application")));
    ASSERT_TRUE(application.acquireName());
    application.setHandlers(recording());

    const QVariantMap platformData{{QStringLiteral("activation-token"), QStringLiteral("t")}};
    EXPECT_EQ(call("Open", {QStringList{QStringLiteral("chimewell:a"), QStringLiteral("é ü")}, platformData})
                  .type(),
              QDBusMessage::ReplyMessage);
    call("Open", {QStringList(), QVariantMap()});
    call("Activate", {QVariantMap()});
    call("ActivateAction", {QStringLiteral("mute"), QVariantList(), QVariantMap()});
    EXPECT_EQ(call("Open", {QStringLiteral("no list"), QVariantMap()}).type(), QDBusMessage::ErrorMessage);
    ASSERT_TRUE(waitUntil([&] { return seen.size() == 5; }));
    EXPECT_EQ(seen, (std::vector<std::string>{"open chimewell:a", "open é ü", "open (none)", "activate",
                                              "action mute"}));
}

TEST_F(FreedesktopApplicationTest, HandlesALongRequestAfterItsAnswerAndOnlyInPart)
{
    FreedesktopApplication application(bus.connection(QStringLiteral("application")));
    application.setHandlers(recording());
    application.Open(QStringList(300, QStringLiteral("url")), {});
    application.Activate({});
    EXPECT_TRUE(seen.empty());
    ASSERT_TRUE(waitUntil([&] { return !seen.empty() && seen.back() == "activate"; }));
    EXPECT_EQ(seen.size(), 257U);
}

}
