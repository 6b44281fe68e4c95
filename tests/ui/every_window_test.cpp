// SPDX-License-Identifier: MIT
// What holds for every window, pane and step: no text is cut, and whoever does not see it knows what each
// control is.
#include "support/interface_on_fakes.h"
#include "ui/confirm_dialog.h"
#include "ui/controls/elided_label.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/panel/panel_window.h"
#include "ui/settings/settings_window.h"
#include "ui/walkthrough/walkthrough_window.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTranslator>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <string>

namespace chimewell::test {
namespace {

/// A language in which everything takes 40 % more room.
class LongLanguage final : public QTranslator {
public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* source, const char*, int) const override
    {
        QString text = QString::fromUtf8(source);
        const auto words = text.size() * 4 / 10 / 5 + 1;
        for (qsizetype i = 0; i < words; ++i)
            text += QStringLiteral(" wort");
        return text;
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

class EveryWindow : public ::testing::TestWithParam<Circumstances> {
protected:
    EveryWindow()
    {
        QApplication::setStyle(new ChimewellStyle);
        QApplication::setPalette(referencePalette(GetParam().isDark));
        QFont font = QApplication::font();
        font.setPixelSize(GetParam().fontPixels);
        QApplication::setFont(font);
        QApplication::setLayoutDirection(GetParam().direction);
        if (GetParam().isLong) QCoreApplication::installTranslator(&longLanguage);

        system.files.contents["/home/me/.codex/config.toml"] = "notify = [\"other\"]\n";
        system.files.contents["/home/me/.cursor/hooks.json"] = "{";
        services.cards.refresh();
        for (const auto& card : services.cards.all())
            if (card->canInstall()) card->perform(PendingAction::install);
        for (int i = 0; i < 8; ++i)
            services.history.add({.type = CanonicalEvent::waitingInput,
                                  .provider = "claude",
                                  .cwd = "/srv/a project with a name that is long " + std::to_string(i),
                                  .message = std::string(300, 'w')},
                                 true);
        services.store.updateEvent(CanonicalEvent::finished,
                                   [](EventSetting& setting) { setting.speak = true; });
        services.store.update([](AppSettings& settings) { settings.reminderIntervalSeconds = 90; });
    }
    ~EveryWindow() override
    {
        QCoreApplication::removeTranslator(&longLanguage);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    /// Shows everything there is, one after the other.
    void forEach(const std::function<void(const std::string& name, QWidget&)>& visit)
    {
        const Windows windows{.openSettings = [] {}, .openWalkthrough = [] {}};
        const InterfaceServices& interface = fakes.interface;
        const auto look = [&](const std::string& name, QWidget& window) {
            window.show();
            for (int i = 0; i < 5; ++i)
                QApplication::processEvents();
            visit(name, window);
        };
        const auto panel = std::make_unique<PanelWindow>(interface, windows, PanelWindow::Form::window);
        panel->showBeside({});
        look("panel", *panel);
        const auto settings = std::make_unique<SettingsWindow>(interface, windows);
        for (const Pane pane : allPanes) {
            settings->show(pane);
            look("settings " + std::to_string(static_cast<int>(pane)), *settings);
        }
        const auto walkthrough = std::make_unique<WalkthroughWindow>(interface);
        for (const OnboardingStep step : allOnboardingSteps) {
            walkthrough->show(step);
            look("walkthrough " + std::to_string(static_cast<int>(step)), *walkthrough);
        }
        for (const PendingAction action : {PendingAction::install, PendingAction::update,
                                           PendingAction::uninstall, PendingAction::restore}) {
            const auto dialog =
                std::make_unique<ConfirmDialog>(services.cards.all().front()->confirmation(action),
                                                Words(Wording::linuxDesktop, "en"), nullptr);
            look("question " + std::to_string(static_cast<int>(action)), *dialog);
        }
    }

    LongLanguage longLanguage;
    InterfaceOnFakes fakes;
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

INSTANTIATE_TEST_SUITE_P(In, EveryWindow,
                         ::testing::Values(Circumstances{"OrdinarySize", 13, false, Qt::LeftToRight, false},
                                           Circumstances{"LargeAndDark", 20, true, Qt::LeftToRight, false},
                                           Circumstances{"LongAndLeftwards", 13, false, Qt::RightToLeft,
                                                         true},
                                           Circumstances{"LongAndLarge", 20, false, Qt::LeftToRight, true}),
                         [](const auto& test) { return std::string(test.param.name); });

}
}
