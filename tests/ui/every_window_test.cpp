// SPDX-License-Identifier: MIT
// What holds for every window, pane and step: no text is cut, whoever does not see it knows what each control
// is, and all of it is said in the language of the interface.
#include "presentation/panel_model.h"
#include "support/windows_on_fakes.h"
#include "ui/controls/confirm_dialog.h"
#include "ui/controls/text_label.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/onboarding/onboarding_window.h"
#include "ui/panel/panel_window.h"
#include "ui/settings/settings_window.h"
#include "ui/tray_icon.h"
#include "values/sound_option.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTranslator>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <string>

namespace chimewell::test {
namespace {

/// A language in which everything takes 40 % more room and stands in brackets.
class PseudoLanguage final : public QTranslator {
public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* source, const char*, int) const override
    {
        QString text = QString::fromUtf8(source);
        const auto words = text.size() * 4 / 10 / 5 + 1;
        for (qsizetype i = 0; i < words; ++i)
            text += QStringLiteral(" wort");
        return u'\u27E6' + text + u'\u27E7';
    }
};

struct Circumstances {
    const char* name;
    int fontPixels;
    bool isDark;
    Qt::LayoutDirection direction;
    bool isLong;

    friend void PrintTo(const Circumstances& in, std::ostream* out) { *out << in.name; }
};

/// Windows that have something to show in every place.
class FilledWindows {
protected:
    explicit FilledWindows(const Circumstances& in)
    {
        QApplication::setStyle(new ChimewellStyle);
        QApplication::setPalette(referencePalette(in.isDark));
        QFont font = QApplication::font();
        font.setPixelSize(in.fontPixels);
        QApplication::setFont(font);
        QApplication::setLayoutDirection(in.direction);
        if (in.isLong) QCoreApplication::installTranslator(&pseudoLanguage);

        system.files.contents["/home/me/.codex/config.toml"] = "notify = [\"other\"]\n";
        system.files.contents["/home/me/.cursor/hooks.json"] = "{";
        services.cards.refresh();
        for (const auto& card : services.cards.all())
            if (card->canInstall()) card->perform(PendingAction::install);
        for (int i = 0; i < 8; ++i)
            services.history.add({.type = CanonicalEvent::waitingInput,
                                  .provider = "claude",
                                  .cwd = "/srv/a project with a name that is long " + std::to_string(i),
                                  .message = longMessage},
                                 true);
        services.store.updateEvent(CanonicalEvent::finished,
                                   [](EventSetting& setting) { setting.speak = true; });
        services.store.update([](AppSettings& settings) { settings.reminderIntervalSeconds = 90; });
    }
    ~FilledWindows()
    {
        QCoreApplication::removeTranslator(&pseudoLanguage);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    /// Shows everything there is, one after the other.
    void forEach(const std::function<void(const std::string& name, QWidget&)>& visit)
    {
        const Windows windows{.openSettings = [] {}, .openOnboarding = [] {}};
        const auto look = [&](const std::string& name, QWidget& window) {
            window.show();
            for (int i = 0; i < 5; ++i)
                QApplication::processEvents();
            visit(name, window);
        };
        const auto panel = std::make_unique<PanelWindow>(services, windows, PanelWindow::Form::window);
        panel->showBeside({});
        look("panel", *panel);
        const auto settings = std::make_unique<SettingsWindow>(services, windows);
        for (const Pane pane : allPanes) {
            settings->show(pane);
            look("settings " + std::to_string(static_cast<int>(pane)), *settings);
        }
        const auto walkthrough = std::make_unique<OnboardingWindow>(services);
        for (const OnboardingStep step : allOnboardingSteps) {
            walkthrough->show(step);
            look("walkthrough " + std::to_string(static_cast<int>(step)), *walkthrough);
        }
        for (const PendingAction action : {PendingAction::install, PendingAction::update,
                                           PendingAction::uninstall, PendingAction::restore}) {
            const auto dialog = std::make_unique<ConfirmDialog>(
                services.cards.all().front()->confirmation(action), fakes.words, nullptr);
            look("question " + std::to_string(static_cast<int>(action)), *dialog);
        }
    }

    const std::string longMessage = std::string(300, 'w');
    PseudoLanguage pseudoLanguage;
    WindowsOnFakes fakes;
    FakeSystem& system = fakes.system;
    Services& services = fakes.services;
};

class EveryWindow : public ::testing::TestWithParam<Circumstances>, protected FilledWindows {
protected:
    EveryWindow() : FilledWindows(GetParam()) {}
};

bool isCut(const QWidget& widget)
{
    if (qobject_cast<const ElidedLabel*>(&widget)) return widget.height() < widget.fontMetrics().height();
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        if (label->text().isEmpty()) return false;
        if (label->wordWrap()) return label->heightForWidth(label->width()) > label->height();
        return label->sizeHint().width() > label->width() || label->sizeHint().height() > label->height();
    }
    if (qobject_cast<const QPushButton*>(&widget) || qobject_cast<const QCheckBox*>(&widget))
        return widget.sizeHint().width() > widget.width() || widget.sizeHint().height() > widget.height();
    return false;
}

TEST_P(EveryWindow, CutsNoText)
{
    forEach([](const std::string& name, QWidget& window) {
        for (const QWidget* widget : window.findChildren<QWidget*>()) {
            if (!widget->isVisible()) continue;
            EXPECT_FALSE(isCut(*widget))
                << name << ": " << widget->metaObject()->className() << " "
                << widget->accessibleName().toStdString() << " wants " << widget->sizeHint().width() << "x"
                << widget->sizeHint().height() << " and has " << widget->width() << "x" << widget->height();
            // Only what scrolls may be partly out of sight, and only up and down.
            const QRect inWindow(widget->mapTo(&window, QPoint()), widget->size());
            EXPECT_TRUE(inWindow.left() >= 0 && inWindow.right() < window.width())
                << name << ": " << widget->metaObject()->className() << " "
                << widget->accessibleName().toStdString() << " leaves the window";
        }
    });
}

TEST_P(EveryWindow, NamesEachControlOnceForThoseWhoDoNotSeeIt)
{
    forEach([](const std::string& name, QWidget& window) {
        std::map<QString, int> names;
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const bool isControl = widget->focusPolicy() & Qt::TabFocus && !qobject_cast<QLabel*>(widget);
            if (!widget->isVisible() || !isControl) continue;
            QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(widget);
            ASSERT_TRUE(seen);
            QString said = seen->text(QAccessible::Name);
            if (qobject_cast<QComboBox*>(widget)) said = seen->text(QAccessible::Description);
            EXPECT_FALSE(said.isEmpty()) << name << ": " << widget->metaObject()->className();
            EXPECT_LE(++names[said], 1) << name << ": twice " << said.toStdString();
        }
        EXPECT_GE(names.size(), 2U) << name;
    });
}

class InAPseudoLanguage : public ::testing::Test, protected FilledWindows {
protected:
    InAPseudoLanguage() : FilledWindows({"Pseudo", 13, false, Qt::LeftToRight, true}) {}

    /// The words that are neither translated nor a name.
    QString unmarked(QString text) const
    {
        static const QRegularExpression marked(QStringLiteral("\u27E6[^\u27E6\u27E7]*\u27E7"));
        while (text.contains(marked))
            text.remove(marked);
        text.remove(QStringLiteral("<p>")).remove(QStringLiteral("</p>"));
        for (const auto& card : services.cards.all())
            text.remove(qString(card->displayName())).remove(qString(card->shownFile()));
        for (const std::string_view name : playableSoundNames)
            text.remove(qString(name));
        for (const std::string& name : {longMessage, system.locale.relativeTime({}, {})})
            text.remove(qString(name));
        return text.remove(QRegularExpression(QStringLiteral("[^\\p{L}]")));
    }
    void expectMarked(const QString& text, const std::string& place) const
    {
        EXPECT_EQ(unmarked(text).toStdString(), "") << place << ": " << text.toStdString();
    }
    void expectMarked(const QWidget& widget, const std::string& place) const
    {
        for (const QString& text : {widget.windowTitle(), widget.accessibleName(),
                                    widget.accessibleDescription(), widget.toolTip()})
            expectMarked(text, place);
        if (const auto* label = qobject_cast<const QLabel*>(&widget))
            expectMarked(label->textFormat() == Qt::RichText ? QString() : label->text(), place);
        if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
            expectMarked(button->text(), place);
        if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
            expectMarked(field->placeholderText(), place);
        if (const auto* picker = qobject_cast<const QComboBox*>(&widget))
            for (int i = 0; i < picker->count(); ++i)
                expectMarked(picker->itemText(i), place);
        for (const QAction* action : widget.actions())
            expectMarked(action->text(), place);
    }
};

TEST_F(InAPseudoLanguage, EveryWindowSaysNothingElse)
{
    system.files.full = true;
    services.store.save(); // the panel and the settings say that it failed
    TrayIcon icon(services, [] {});
    icon.show(statusIconState(services.store.settings(), services.ports.translator));
    for (const QWidget* menu : QApplication::topLevelWidgets())
        expectMarked(*menu, "icon");
    forEach([this](const std::string& name, QWidget& window) {
        expectMarked(window, name);
        for (const QWidget* widget : window.findChildren<QWidget*>())
            expectMarked(*widget, name);
    });
}

TEST_F(InAPseudoLanguage, EveryAlertSaysNothingElse)
{
    services.notifications.configure();
    for (const CanonicalEvent event : allCanonicalEvents) {
        services.store.updateEvent(
            event, [](EventSetting& setting) { setting.enabled = setting.showPopup = setting.speak = true; });
        const EventPayload payload{.type = event, .provider = "claude", .cwd = "/srv/proj"};
        services.router.handle(payload);
        services.router.fireReminder(payload);
    }
    services.actions.testBanner();
    ASSERT_EQ(system.center.posted.size(),
              2 * allCanonicalEvents.size()); // one event is silent, one is a test
    for (const NotificationRequest& banner : system.center.posted)
        expectMarked(qString(banner.title + banner.body), "banner");
    expectMarked(qString(system.center.category.actionTitle), "button of a banner");
    ASSERT_FALSE(system.speech.spoken.empty());
    for (const auto& utterance : system.speech.spoken)
        expectMarked(qString(utterance.first), "speech");
    for (const EventHistory::Entry& entry : services.history.entries())
        expectMarked(fakes.words(entry.displayTitle()), "history");
}

INSTANTIATE_TEST_SUITE_P(In, EveryWindow,
                         ::testing::Values(Circumstances{"OrdinarySize", 13, false, Qt::LeftToRight, false},
                                           Circumstances{"LargeAndDark", 20, true, Qt::LeftToRight, false},
                                           Circumstances{"LongAndLeftwards", 13, false, Qt::RightToLeft,
                                                         true},
                                           Circumstances{"LongAndLarge", 20, false, Qt::LeftToRight, true}),
                         [](const auto& test) { return std::string(test.param.name); });

}
}
