// SPDX-License-Identifier: MIT
#include "app/macos/application.h"

#include "objective_c.h"
#include "platform/posix/file_descriptor.h"
#include "support/fake_time.h"
#include "support/temporary_folder.h"
#include "ui/look/symbol.h"
#include "ui/look/words.h"
#include "ui/panel/panel_window.h"

#include <QApplication>
#include <QFileOpenEvent>
#include <QImage>
#include <QLayout>
#include <QShortcut>
#include <QTimer>
#include <QUrl>

#include <Block.h>
#include <fcntl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace chimewell::test::objc;

namespace chimewell::test {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

using Event = std::pair<Word, Word>; ///< Its class and its identifier.
const Event openUrl{'GURL', 'GURL'};
const Event reopen{'aevt', 'rapp'};
const Event quit{'aevt', 'quit'};

std::map<Event, std::pair<Id, const char*>> handlers; ///< Of Apple events: objects and selectors.

/// Where an Apple event keeps what it is about.
std::string place(const char* message, Word keyword)
{
    return message + std::to_string(keyword);
}

constexpr char parameter[] = "paramDescriptorForKeyword:";
constexpr char attribute[] = "attributeDescriptorForKeyword:";

/// The whole application on the adapters of macOS, authorized to show banners.
class ApplicationTest : public ::testing::Test {
protected:
    ApplicationTest()
    {
        reset();
        qputenv("HOME", folder.path().c_str());
        handlers = {{openUrl, {object(), "ignore"}}}; // the toolkit's
        shared("sharedWorkspace").set("notificationCenter", object());
        implement("getNotificationSettingsWithCompletionHandler:",
                  [](Id, const char*, void (^done)(Id)) { done(object({{"authorizationStatus", 2}})); });
        implement("setEventHandler:andSelector:forEventClass:andEventID:",
                  [](Id, const char*, Id handler, const char* selector, std::uint32_t type,
                     std::uint32_t id) { handlers[{type, id}] = {handler, selector}; });
        implement("removeEventHandlerForEventClass:andEventID:",
                  [](Id, const char*, std::uint32_t type, std::uint32_t id) { handlers.erase({type, id}); });
        for (const char* message : {parameter, attribute})
            implement(message, [](Id event, const char* selector, std::uint32_t keyword) -> Id {
                return Value(event)[place(selector, keyword)];
            });
        // AppKit measures upwards from the bottom left corner of the primary screen.
        implement(
            "statusItemWithLength:", [](Id bar, const char*, double) -> Id { return Value(bar)["item"]; });
        implement("bounds", [](Id, const char*) { return ScreenArea{0, 0, 26, 20}; });
        for (const char* conversion : {"convertRect:toView:", "convertRectToScreen:"})
            implement(conversion, [](Id, const char*, ScreenArea area) {
                return ScreenArea{area.x + 501, area.y + 486, area.width, area.height};
            });
        implement("frame", [](Id, const char*) { return ScreenArea{0, 0, 1920, 1000}; });
        shared("screens").set("firstObject", object());
        shared("systemStatusBar").set("item", object({{"button", button}}));
        application = std::make_unique<Application>(translator, time);
        EXPECT_EQ(handlers.size(), 1U);    // before the toolkit has registered
        EXPECT_TRUE(madeTimers().empty()); // nothing is timed before the launch, which may take long
        launch();
        runMainQueue();
    }

    static void launch()
    {
        notify(shared("defaultCenter"), "NSApplicationWillFinishLaunchingNotification");
        notify(shared("defaultCenter"), "NSApplicationDidFinishLaunchingNotification");
    }

    static void deliver(const Event& name, Value content, Value reply = object())
    {
        const auto [handler, selector] = handlers.at(name);
        send(handler, selector, Id(content), Id(reply));
    }
    static void open(Value url)
    {
        deliver(openUrl, object({{place(parameter, '----'), object({{"stringValue", url}})}}));
    }
    /// The folder that the last banner leads to.
    static std::string folderOfBanner()
    {
        const Value request = shared("currentNotificationCenter")["addNotificationRequest"];
        return request["content"]["userInfo"].texts()["cwd"];
    }
    /// Runs the event loop, in which `quit` is to end it.
    bool isDormantAfter(const std::function<void()>& request) const
    {
        QTimer::singleShot(0, qApp, request);
        QApplication::exec();
        const fs::path marker = folder.path() / "Support/Chimewell/dormant";
        const bool isDormant = fs::exists(marker);
        fs::remove(marker);
        return isDormant;
    }
    /// Their titles, one after the other.
    static std::string shownWindows()
    {
        std::string titles;
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible()) titles += window->windowTitle().toStdString();
        return titles;
    }
    /// Lets every timer of the run loop fire.
    static void ringTimers()
    {
        for (const Value& timer : std::exchange(madeTimers(), {}))
            if (!timer["isInvalid"].as<bool>()) ring(timer);
    }

    const TemporaryFolder folder;
    const QtTranslator translator{Wording::macOS, {}};
    FakeTime time;
    const Value button = object({{"window", object()}});
    std::unique_ptr<Application> application;
};

}

TEST_F(ApplicationTest, TakesUrlsFromAppleEventsAndTheToolkit)
{
    open("chimewell://event?type=finished&provider=claude&cwd=/one");
    EXPECT_EQ(folderOfBanner(), "/one");
    open(nullptr);
    QFileOpenEvent event(
        QUrl(QStringLiteral("chimewell://event?type=waiting_input&provider=codex&cwd=/an%26other")));
    QApplication::sendEvent(qApp, &event);
    EXPECT_EQ(folderOfBanner(), "/an&other");
}

TEST_F(ApplicationTest, OpensItsPanelUnderItsIcon)
{
    EXPECT_EQ(button["image"]["systemSymbolName"].text(), "bell");
    EXPECT_TRUE(button["image"]["template"].as<bool>()); // in the menu bar's own colour
    EXPECT_EQ(button["accessibilityLabel"].text(), button["toolTip"].text());
    EXPECT_EQ(button["sendActionOn"].as<int>(), 4 | 16); // either button, when released
    send(button["target"], button["action"].as<const char*>(), Id(button));
    const auto windows = QApplication::topLevelWidgets();
    const auto panel =
        std::ranges::find_if(windows, [](auto* each) { return qobject_cast<PanelWindow*>(each); });
    ASSERT_NE(panel, windows.end());
    // Without its shadow.
    const QRect area = (*panel)->geometry().marginsRemoved((*panel)->layout()->contentsMargins());
    EXPECT_TRUE(area.top() >= 28 && area.top() < 48) << area.top(); // under the menu bar
    EXPECT_TRUE(area.left() <= 1002 && area.right() >= 1028) << area.left();
}

TEST_F(ApplicationTest, DrawsTheSystemsSymbols)
{
    constexpr int size = 5; // no multiple of four bytes
    static std::array<unsigned char, 4UL * size * size> samples;
    static ScreenArea drawn;
    samples.back() = 0xFF; // how much the last pixel is covered
    implement(
        "initWithBitmapDataPlanes:pixelsWide:pixelsHigh:bitsPerSample:samplesPerPixel:hasAlpha:isPlanar:"
        "colorSpaceName:bytesPerRow:bitsPerPixel:",
        [](Id bitmap, const char*) -> Id {
            Value(bitmap).set("bitmapData", samples.data());
            return bitmap;
        });
    implement("size", [](Id, const char*) { return QSizeF(20, 10); });
    implement("drawInRect:", [](Id, const char*, ScreenArea area) { drawn = area; });
    const QImage picture = symbol("bell", size, Qt::red, 1).toImage();
    EXPECT_EQ(drawn, (ScreenArea{0, 1.25, 5, 2.5})); // in the middle
    EXPECT_EQ(picture.pixelColor(4, 4), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(3, 4).alpha(), 0);
}

TEST_F(ApplicationTest, ComesForwardWhenTheUserStartsItAgain)
{
    EXPECT_EQ(shownWindows(), "Welcome");
    deliver(reopen, object());
    ringTimers();
    EXPECT_EQ(shownWindows(), "Welcome");
    EXPECT_FALSE(QApplication::testAttribute(Qt::AA_SetPalette)); // the colours stay the system's
    QApplication::closeAllWindows();
    ringTimers();
    EXPECT_EQ(shownWindows(), "");
    deliver(reopen, object());
    ringTimers();
    EXPECT_EQ(shownWindows(), "Chimewell Settings");
}

TEST_F(ApplicationTest, StaysBehindWhenTheSystemReopensIt)
{
    const Value center = shared("currentNotificationCenter");
    const auto clickBanner = [&] {
        const Value response = object({{"actionIdentifier", "UNNotificationDefaultActionIdentifier"}});
        send(center["delegate"],
             "userNotificationCenter:didReceiveNotificationResponse:withCompletionHandler:", Id(center),
             Id(response),
             Block_copy(^{
             }));
        runMainQueue();
    };
    const auto wake = [] {
        notify(shared("sharedWorkspace")["notificationCenter"], "NSWorkspaceDidWakeNotification");
    };
    const std::pair<std::function<void()>, std::chrono::seconds> causes[] = {
        {[] { open("chimewell://event?type=finished"); }, ReopenRequests::afterOthers},
        {clickBanner, ReopenRequests::afterOthers},
        {wake, ReopenRequests::afterWake}};
    QApplication::closeAllWindows();
    for (const auto& [cause, explained] : causes) {
        deliver(reopen, object());
        cause();
        time.sleep(explained - 1ms);
        deliver(reopen, object());
        ringTimers();
        EXPECT_EQ(shownWindows(), "");
        time.sleep(1ms);
        deliver(reopen, object());
        ringTimers();
        EXPECT_EQ(shownWindows(), "Chimewell Settings");
        QApplication::closeAllWindows();
    }
}

TEST_F(ApplicationTest, RegistersAndTakesAway)
{
    const fs::path abandoned =
        folder.write("Support/Chimewell/.chimewell-01234567-89AB-4CDE-8F01-23456789ABCD", "");
    fs::last_write_time(abandoned, fs::file_time_type::clock::now() - std::chrono::hours(1));
    application.reset();
    application = std::make_unique<Application>(translator, time); // which saves nothing this time
    EXPECT_FALSE(fs::exists(abandoned));
    notify(shared("defaultCenter"), "NSApplicationWillFinishLaunchingNotification");
    EXPECT_EQ(handlers.size(), 3U); // before the event that started it arrives
    const FileDescriptor running(::open((folder.path() / "Support/Chimewell/running").c_str(), O_RDWR));
    ASSERT_TRUE(running.isOpen());
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    EXPECT_EQ(::fcntl(running.get(), F_OFD_SETLK, &lock), -1) << "the lock by which the helper knows it";
    application.reset();
    EXPECT_TRUE(handlers.empty());
    EXPECT_EQ(shared("systemStatusBar")["removeStatusItem"], shared("systemStatusBar")["item"]);
    launch();
    EXPECT_TRUE(handlers.empty());
}

TEST_F(ApplicationTest, IsDormantAfterTheUsersQuitOnly)
{
    EXPECT_TRUE(isDormantAfter([] { // the toolkit's menu
        QEvent event(QEvent::Quit);
        QApplication::sendEvent(qApp, &event);
    }));
    EXPECT_TRUE(isDormantAfter([] { // a key
        for (QWidget* window : QApplication::topLevelWidgets())
            for (QShortcut* shortcut : window->findChildren<QShortcut*>())
                if (shortcut->key() == QKeySequence(Qt::CTRL | Qt::Key_Q)) shortcut->activated();
    }));
    const Value reply = object();
    const auto isDormantAfterEvent = [&](Value content) {
        return isDormantAfter([&] { deliver(quit, content, reply); });
    };
    EXPECT_TRUE(isDormantAfterEvent(object()));
    const std::pair<int, bool> reasons[] = {{'quia', true},  {'norm', true},  {'logo', false},
                                            {'rlgo', false}, {'rest', false}, {'shut', false}};
    for (const char* message : {parameter, attribute})
        for (const char* type : {"enumCodeValue", "typeCodeValue"})
            for (const auto& [reason, dormant] : reasons)
                EXPECT_EQ(isDormantAfterEvent(object({{place(message, 'why?'), object({{type, reason}})}})),
                          dormant)
                    << message << type << reason;
    EXPECT_EQ(reply["setParamDescriptor"], Value(nullptr)); // no error, which would refuse
}

}
