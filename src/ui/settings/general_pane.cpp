// SPDX-License-Identifier: MIT
#include "core/product.h"
#include "presentation/panel_model.h"
#include "presentation/settings_model.h"
#include "ui/controls/accessibility.h"
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/confirm_dialog.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/look/symbol.h"
#include "ui/settings/pane.h"
#include "values/texts.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include <cstddef>
#include <vector>

namespace chimewell {

namespace {

void open(const char* address)
{
    QDesktopServices::openUrl(QUrl(qString(address)));
}

QWidget* makeRow(QWidget* text, QWidget* control, const QMargins& margins)
{
    auto* row = new QWidget;
    auto* layout = makeColumn(row);
    layout->setContentsMargins(margins);
    layout->addLayout(new RowLayout(text, control));
    return row;
}

/// A text with a control at its end, alone in its card.
QWidget* makeWideRow(QWidget* text, QWidget* control, double endMargin)
{
    return makeRow(text, control, directed(inRow(cardEdge), scaled(12), inRow(endMargin), scaled(12)));
}

/// What concerns the whole application.
class GeneralPane final : public PaneColumn {
public:
    GeneralPane(Services& services, const Windows& windows);

private:
    void addNotifications();
    void addDiagnostics();
    void addSetup(const Windows& windows);
    void addSupport();
    void addAbout();
    QWidget* makeLinks();
    void showSettings();
    void showMute();
    void askToDisconnect();
    void showDisconnected();
    void showPermission();

    Services& services_;
    const Words words_;
    SwitchRow* mute_ = nullptr;
    SwitchRow* launch_ = nullptr;
    TextLabel* permission_ = nullptr;
    Note* bannerProblem_ = nullptr;
    QPushButton* openSystemSettings_ = nullptr;
    QWidget* bannerProblemRow_ = nullptr;
    bool didRunBannerTest_ = false;
    QPushButton* disconnect_ = nullptr;
    QWidget* disconnectResult_ = nullptr;
    std::vector<Note*> disconnectNotes_; ///< One for each agent.
    std::vector<Subscription> cardChanges_;
    Subscription storeChange_;
    Subscription muteChange_;
    Subscription statusChange_;
};

GeneralPane::GeneralPane(Services& services, const Windows& windows)
    : services_(services),
      words_(services.ports.translator)
{
    addNotifications();
    addDiagnostics();
    addSetup(windows);
    addSupport();
    addAbout();
    finish();

    storeChange_ = services_.store.onChange([this] { showSettings(); });
    muteChange_ = services_.muting.onChange([this] { showMute(); });
    statusChange_ = services_.notifications.onChange([this] { showPermission(); });
    showSettings();
    showMute();
    showPermission();
    showDisconnected();
}

void GeneralPane::addNotifications()
{
    mute_ = new SwitchRow(words_(texts::muteAllNotifications));
    connect(&mute_->control(), &QAbstractButton::toggled, this,
            [this](bool isMuted) { services_.actions.setMuted(isMuted); });
    launch_ = new SwitchRow(words_(texts::launchAtLogin));
    connect(&launch_->control(), &QAbstractButton::toggled, this, [this](bool isOn) {
        const auto failure = services_.actions.setLaunchAtLogin(isOn);
        launch_->showError(failure ? words_(*failure) : QString());
    });
    permission_ = new TextLabel(TextStyle::body, Tone::secondary);
    addHeading(words_(texts::notifications));
    Card* card = addCard();
    card->addRow(mute_, cardEdge);
    card->addRow(launch_, cardEdge);
    card->addRow(new SettingRow(words_(texts::permission), permission_), cardEdge);
}

void GeneralPane::addDiagnostics()
{
    auto* banner = new QPushButton(words_(texts::testBanner));
    connect(banner, &QPushButton::clicked, this, [this] {
        services_.actions.testBanner();
        didRunBannerTest_ = true;
        showPermission();
    });
    auto* sample = new QPushButton(words_(texts::playSample));
    setHelp(*sample, words_(texts::sampleTooltip));
    connect(sample, &QPushButton::clicked, this, [this] { services_.actions.playSample(); });
    auto* tests = new QWidget;
    auto* layout = makeColumn(tests, 8);
    layout->setContentsMargins(inRow(cardEdge), scaled(12), inRow(cardEdge), scaled(14));
    layout->addWidget(
        makeParagraph(TextStyle::subheadline, Tone::secondary, words_(texts::diagnosticsCaption)));
    auto* buttons = new FlowLayout(scaled(8));
    buttons->addWidget(banner);
    buttons->addWidget(sample);
    layout->addLayout(buttons);

    bannerProblem_ = new Note(TextStyle::subheadline);
    openSystemSettings_ = new QPushButton(words_(texts::openSystemSettings));
    connect(openSystemSettings_, &QPushButton::clicked, this,
            [this] { services_.actions.openNotificationSettings(); });
    bannerProblemRow_ = makeRow(bannerProblem_, openSystemSettings_,
                                {inRow(cardEdge), scaled(10) + 1, inRow(cardEdge), scaled(10)});
    addHeading(words_(texts::diagnostics));
    Card* card = addCard();
    card->addRow(tests, cardEdge);
    card->addRow(bannerProblemRow_, cardEdge);
}

void GeneralPane::addSetup(const Windows& windows)
{
    auto* onboarding =
        new RowButton(RowButton::Kind::cardRow, "chevron.right", words_(texts::showWalkthrough));
    setHelp(*onboarding, words_(texts::showWalkthroughTooltip));
    connect(onboarding, &QAbstractButton::clicked, this, windows.openOnboarding);
    addHeading(words_(texts::setup));
    Card* card = addCard();
    card->addRow(onboarding);

    disconnect_ = new QPushButton(words_(texts::disconnectAll));
    connect(disconnect_, &QPushButton::clicked, this, [this] { askToDisconnect(); });
    card->addRow(
        makeWideRow(makeParagraph(TextStyle::body, Tone::neutral, words_(texts::disconnectAllCaption)),
                    disconnect_, cardEdge),
        cardEdge);
    disconnectResult_ = new QWidget;
    auto* notes = makeColumn(disconnectResult_, 8);
    notes->setContentsMargins(inRow(cardEdge), scaled(10) + 1, inRow(cardEdge), scaled(10));
    for (const auto& agent : services_.cards.all()) {
        disconnectNotes_.push_back(new Note(TextStyle::subheadline));
        notes->addWidget(disconnectNotes_.back());
        cardChanges_.push_back(agent->onChange([this] { showDisconnected(); }));
    }
    card->addRow(disconnectResult_, cardEdge);
}

void GeneralPane::askToDisconnect()
{
    auto* question = new ConfirmDialog(services_.cards.disconnectConfirmation(), words_, window());
    connect(question, &QDialog::accepted, this, [this] {
        services_.cards.disconnectAll();
        for (const Note* note : disconnectNotes_)
            if (note->isVisible()) announce(*note->label());
    });
    question->open();
}

void GeneralPane::addSupport()
{
    auto* support = new QPushButton(symbolIcon("cup.and.saucer.fill"), words_(texts::supportButton));
    connect(support, &QPushButton::clicked, this, [] { open(product::supportPage); });
    addHeading(words_(texts::support));
    addCard()->addRow(makeWideRow(makeParagraph(TextStyle::body, Tone::neutral, words_(texts::supportText)),
                                  support, cardEdge));
}

void GeneralPane::addAbout()
{
    auto* version = new TextLabel(TextStyle::subheadline, Tone::secondary,
                                  words_({texts::version, {std::string(product::version)}}));
    version->makeSelectable();
    auto* about = new QWidget;
    auto* lines = makeColumn(about);
    lines->addWidget(new TextLabel(TextStyle::bodyMedium, Tone::neutral, words_(texts::chimewell)));
    lines->addWidget(version);
    addHeading(words_(texts::about));
    addCard()->addRow(makeWideRow(about, makeLinks(), cardEdge - flatPadding));
}

QWidget* GeneralPane::makeLinks()
{
    auto* links = new QWidget;
    auto* line = makeLine(links, 4);
    const auto add = [&](const Text& text, const char* address) {
        auto* link = new LinkButton(words_(text));
        connect(link, &QPushButton::clicked, this, [address] { open(address); });
        line->addWidget(link);
    };
    add(texts::website, product::website);
    add(texts::privacyPolicy, product::privacyPolicy);
    add(texts::terms, product::terms);
    return links;
}

void GeneralPane::showSettings()
{
    const AppSettings& settings = services_.store.settings();
    launch_->control().show(settings.launchAtLogin);
}

void GeneralPane::showMute()
{
    const auto end = muteEnd(services_.muting, services_.ports.locale);
    mute_->control().show(services_.muting.isMuted());
    mute_->setCaption(end ? words_(*end) : QString());
}

void GeneralPane::showDisconnected()
{
    disconnect_->setEnabled(services_.cards.anyConnected());
    const auto news = services_.cards.disconnectNotes();
    for (std::size_t i = 0; i < disconnectNotes_.size(); ++i) {
        if (i < news.size()) disconnectNotes_[i]->setNote(news[i].icon, news[i].tone, words_(news[i].text));
        disconnectNotes_[i]->setVisible(i < news.size());
    }
    disconnectResult_->setVisible(!news.empty());
}

void GeneralPane::showPermission()
{
    const AuthStatus status = services_.notifications.status();
    const bool isDenied = status == AuthStatus::denied;
    permission_->setText(words_(permissionText(status)));
    bannerProblem_->setNote("bell.slash", Tone::orange,
                            words_(isDenied ? texts::bannersOff : texts::testBannerNotShown));
    openSystemSettings_->setVisible(isDenied);
    bannerProblemRow_->setVisible(didRunBannerTest_ && (isDenied || status == AuthStatus::unavailable));
}

}

PaneColumn* makeGeneralPane(Services& services, const Windows& windows)
{
    return new GeneralPane(services, windows);
}

}
