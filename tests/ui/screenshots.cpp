// SPDX-License-Identifier: MIT
// screenshots FOLDER light|dark: a picture of every window, pane and step. The scale is Qt's
// (QT_SCALE_FACTOR), the language LANGUAGE's.
#include "support/windows_on_fakes.h"
#include "ui/controls/confirm_dialog.h"
#include "ui/controls/disclosure.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/words.h"
#include "ui/onboarding/onboarding_window.h"
#include "ui/panel/panel_window.h"
#include "ui/settings/settings_window.h"

#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QPixmap>

#include <chrono>
#include <memory>

namespace {

using namespace chimewell;
using namespace chimewell::test;
using namespace std::chrono_literals;

/// The relative times of a user of English.
class EnglishTimes final : public PlainLocale {
public:
    std::string relativeTime(Date date, Date now) const override { return text(date, now, " minutes ago"); }
    std::string shortRelativeTime(Date date, Date now) const override { return text(date, now, " min. ago"); }

private:
    static std::string text(Date date, Date now, const char* unit)
    {
        return std::to_string(std::chrono::floor<std::chrono::minutes>(now - date).count()) + unit;
    }
};

void addAlerts(WindowsOnFakes& fakes)
{
    const auto add = [&](CanonicalEvent event, const char* cwd, std::chrono::minutes then,
                         const char* message = "", bool isReminder = false) {
        EventPayload payload{.type = event, .provider = "claude"};
        if (*cwd) payload.cwd = cwd;
        if (*message) payload.message = message;
        fakes.services.history.add(payload, isReminder);
        fakes.system.time.advance(then);
    };
    add(CanonicalEvent::finished, "/srv/notes-api", 18min);
    add(CanonicalEvent::subagentFinished, "", 7min);
    add(CanonicalEvent::error, "/srv/notes-api", 17min);
    add(CanonicalEvent::finished, "/srv/compiler-lab", 11min);
    add(CanonicalEvent::waitingInput, "/srv/web-shop", 3min, "", true);
    add(CanonicalEvent::finished, "/srv/notes-api", 3min);
    add(CanonicalEvent::waitingInput, "/srv/web-shop", 2min, "Claude needs your permission to use Bash");
}

class Camera {
public:
    explicit Camera(QString folder) : folder_(std::move(folder)) {}

    void take(QWidget& window, const QString& name) const
    {
        window.show();
        for (int i = 0; i < 5; ++i)
            QApplication::processEvents();
        window.grab().save(folder_ + QLatin1Char('/') + name + QStringLiteral(".png"));
    }

private:
    QString folder_;
};

void takeAll(const Camera& camera)
{
    const EnglishTimes times;
    const Windows windows{.openSettings = [] {}, .openOnboarding = [] {}};
    WindowsOnFakes fakes(&times);
    Services& services = fakes.services;
    const auto panel = [&](const QString& name) {
        const auto window = std::make_unique<PanelWindow>(services, windows, PanelWindow::Form::popUp);
        window->showBeside(QRect(600, 0, 20, 20));
        camera.take(*window, name);
    };
    panel(QStringLiteral("panel-setup"));
    for (const OnboardingStep step : allOnboardingSteps) {
        const auto window = std::make_unique<OnboardingWindow>(services);
        window->show(step);
        camera.take(*window, QStringLiteral("walkthrough-%1").arg(static_cast<int>(step) + 1));
    }
    {
        const auto window = std::make_unique<SettingsWindow>(services, windows);
        window->show(Pane::recent);
        camera.take(*window, QStringLiteral("settings-recent-empty"));
    }

    addAlerts(fakes);
    fakes.system.files.contents["/home/me/.cursor/hooks.json"] = "{";
    services.cards.all()[0]->perform(PendingAction::install);
    services.store.updateProvider("claude", [](ProviderInstallState& state) { state.hookVersion = 2; });
    services.cards.all()[1]->perform(PendingAction::install);
    fakes.system.time.advance(ProviderCard::pauseTime);
    services.cards.refresh();
    panel(QStringLiteral("panel-listening"));
    services.actions.setMuted(true);
    panel(QStringLiteral("panel-muted"));
    services.actions.setMuted(false);

    services.store.updateEvent(CanonicalEvent::waitingInput,
                               [](EventSetting& setting) { setting.speak = true; });
    services.store.update([](AppSettings& settings) { settings.reminderIntervalSeconds = 420; });
    for (const Pane pane : allPanes) {
        const auto window = std::make_unique<SettingsWindow>(services, windows);
        window->show(pane);
        camera.take(*window, QStringLiteral("settings-") + qString(rawName(pane)));
    }
    const auto question = [&](std::size_t agent, PendingAction action, const QString& name) {
        const auto dialog = std::make_unique<ConfirmDialog>(services.cards.all()[agent]->confirmation(action),
                                                            fakes.words, nullptr);
        if (auto* fold = dialog->findChild<DisclosureButton*>()) fold->click();
        camera.take(*dialog, name);
    };
    question(2, PendingAction::install, QStringLiteral("question-install"));
    question(0, PendingAction::uninstall, QStringLiteral("question-uninstall"));
    question(0, PendingAction::restore, QStringLiteral("question-restore"));
}

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    installTranslation(application, QLocale::system().uiLanguages());
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) return 64;
    QDir().mkpath(arguments[1]);
    QApplication::setStyle(new ChimewellStyle);
    QApplication::setPalette(referencePalette(arguments[2] == QStringLiteral("dark")));
    QFont font = QApplication::font();
    font.setPixelSize(13);
    QApplication::setFont(font);
    takeAll(Camera(arguments[1]));
    return 0;
}
