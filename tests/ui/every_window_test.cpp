// SPDX-License-Identifier: MIT
// Checks of every window, pane and step: no text is cut, screen readers know each control, and everything is
// said in the language of the interface. scripts/screenshots has it take a picture of each.
#include "presentation/panel_model.h"
#include "ui/controls/confirm_dialog.h"
#include "ui/controls/text_label.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/onboarding/onboarding_window.h"
#include "ui/panel/panel_window.h"
#include "ui/settings/settings_window.h"
#include "ui/tray_icon.h"
#include "values/sound_option.h"
#include "window_test.h"

#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTranslator>

#include <functional>
#include <map>

namespace chimewell::test {
namespace {

/// A language in which everything takes 40 % more room and is in brackets.
class PseudoLanguage final : public QTranslator {
public:
    static const QRegularExpression& translated()
    {
        static const QRegularExpression inBrackets(QStringLiteral("\u27E6[^\u27E6\u27E7]*\u27E7"));
        return inBrackets;
    }
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
};

/// Windows that have something to show in every place.
class FilledWindows {
public:
    explicit FilledWindows(const Circumstances& in) : circumstances(in)
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
        services.actions.muteForAnHour();
        system.files.full = true;
        services.store.save(); // the panel and the settings say that it failed
    }
    ~FilledWindows()
    {
        QCoreApplication::removeTranslator(&pseudoLanguage);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    /// Shows everything there is, one after the other.
    void forEach(const std::function<void(QWidget&)>& visit)
    {
        const Windows windows{.openSettings = [] {}, .openOnboarding = [] {}};
        const QString pictures = qEnvironmentVariable("CHIMEWELL_SCREENSHOTS");
        const auto look = [&](const std::string& name, QWidget& window) {
            SCOPED_TRACE(name);
            window.show();
            for (int i = 0; i < 5; ++i)
                QApplication::processEvents();
            visit(window);
            if (pictures.isEmpty()) return;
            const std::string file = std::string(circumstances.name) + ", " + name + ".png";
            window.grab().save(pictures + u'/' + QString::fromStdString(file));
        };
        PanelWindow panel(services, windows, PanelWindow::Form::window);
        panel.showBeside({});
        look("panel", panel);
        SettingsWindow settings(services, windows);
        for (const Pane pane : allPanes) {
            settings.show(pane);
            look("settings " + std::string(rawName(pane)), settings);
        }
        services.store.updateProvider("cursor", [](ProviderInstallState& state) { state.installed = true; });
        system.time.advance(ProviderCard::pauseTime);
        {
            ConfirmDialog dialog(services.cards.disconnectConfirmation(), fakes.words, nullptr);
            look("question disconnect", dialog);
        }
        services.cards.disconnectAll();
        look("settings disconnected", settings);
        OnboardingWindow onboarding(services);
        for (const OnboardingStep step : allOnboardingSteps) {
            onboarding.show(step);
            look("step " + std::to_string(static_cast<int>(step)), onboarding);
        }
        for (const PendingAction action : {PendingAction::install, PendingAction::update,
                                           PendingAction::uninstall, PendingAction::restore}) {
            ConfirmDialog dialog(services.cards.all().front()->confirmation(action), fakes.words, nullptr);
            look("question " + std::to_string(static_cast<int>(action)), dialog);
        }
    }

    /// What is the same in every language.
    QRegularExpression names() const
    {
        QStringList names = {qString(longMessage), qString(system.locale.relativeTime({}, {}))};
        for (const auto& card : services.cards.all())
            names << qString(card->displayName()) << qString(card->shownFile());
        for (const std::string_view name : playableSoundNames)
            names << qString(name);
        for (QString& name : names)
            name = QRegularExpression::escape(name);
        return QRegularExpression((names << QStringLiteral("</?p>")).join(u'|'));
    }

    const Circumstances circumstances;
    const std::string longMessage = std::string(300, 'w');
    PseudoLanguage pseudoLanguage;
    WindowsOnFakes fakes;
    FakeSystem& system = fakes.system;
    Services& services = fakes.services;
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

std::string about(const QWidget& widget)
{
    return widget.metaObject()->className() + (" " + widget.accessibleName().toStdString());
}

void expectNothingIsCut(const QWidget& window)
{
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible()) continue;
        EXPECT_FALSE(isCut(*widget)) << about(*widget) << " has " << widget->width() << "x"
                                     << widget->height();
        // Only what scrolls may be partly out of sight, and only up and down.
        const QRect inWindow(widget->mapTo(&window, QPoint()), widget->size());
        EXPECT_TRUE(inWindow.left() >= 0 && inWindow.right() < window.width()) << about(*widget);
    }
}

/// Screen readers know what each control is, and it by a name of its own.
void expectControlsAreNamedOnce(const QWidget& window)
{
    std::map<QString, int> names;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool isControl = widget->focusPolicy() & Qt::TabFocus && !qobject_cast<QLabel*>(widget);
        if (!widget->isVisible() || !isControl) continue;
        QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(widget);
        ASSERT_TRUE(seen);
        const bool isPicker = qobject_cast<QComboBox*>(widget);
        const QString said = seen->text(isPicker ? QAccessible::Description : QAccessible::Name);
        EXPECT_FALSE(said.isEmpty()) << about(*widget);
        EXPECT_NE(seen->role(), QAccessible::Client) << about(*widget);
        EXPECT_LE(++names[said], 1) << "twice " << said.toStdString();
    }
    EXPECT_GE(names.size(), 2U);
}

/// Everything that the widget says is translated, apart from names. `names` is what to leave out of its
/// texts.
void expectTranslated(const QWidget& widget, const QRegularExpression& names)
{
    const auto* label = qobject_cast<const QLabel*>(&widget);
    const bool isMarkedUp = label && label->textFormat() == Qt::RichText;
    QStringList texts = {widget.windowTitle(), widget.accessibleName(), widget.accessibleDescription(),
                         widget.toolTip(), widget.property("placeholderText").toString()};
    if (label ? !isMarkedUp : qobject_cast<const QAbstractButton*>(&widget) != nullptr)
        texts += widget.property("text").toString();
    if (const auto* picker = qobject_cast<const QComboBox*>(&widget))
        for (int i = 0; i < picker->count(); ++i)
            texts += picker->itemText(i);
    for (const QAction* action : widget.actions())
        texts += action->text();
    for (const QString& text : texts) {
        QString left = text;
        while (left.contains(PseudoLanguage::translated()))
            left.remove(PseudoLanguage::translated());
        EXPECT_EQ(left.remove(names).remove(QRegularExpression(QStringLiteral("[^\\p{L}]"))).toStdString(),
                  "")
            << text.toStdString();
    }
}

TEST(EveryWindow, CutsNoTextNamesEachControlOnceAndSaysAllInTheUsersLanguage)
{
    for (const Circumstances& in : {Circumstances{"ordinary size", 13, false, Qt::LeftToRight, false},
                                    Circumstances{"large and dark", 20, true, Qt::LeftToRight, false},
                                    Circumstances{"long and leftwards", 13, false, Qt::RightToLeft, true},
                                    Circumstances{"long and large", 20, false, Qt::LeftToRight, true}}) {
        SCOPED_TRACE(in.name);
        FilledWindows windows(in);
        const QRegularExpression names = windows.names();
        TrayIcon icon;
        icon.show(statusIconState(windows.services.store.settings(), windows.services.muting,
                                  windows.services.ports.translator));
        windows.forEach([&](const QWidget& window) {
            expectNothingIsCut(window);
            expectControlsAreNamedOnce(window);
            if (!in.isLong) return;
            for (const QWidget* widget : QApplication::allWidgets()) // the icon's menu, too
                expectTranslated(*widget, names);
        });
    }
}

}
}
