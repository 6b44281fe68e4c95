// SPDX-License-Identifier: MIT
#include "ui/settings/general_pane.h"

#include "core/product.h"
#include "presentation/settings_model.h"
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/controls/text_label.h"
#include "ui/look/symbol.h"
#include "ui/settings/pane_column.h"
#include "values/texts.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace chimewell {

namespace {

QPushButton* makeButton(const QString& text)
{
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    return button;
}

constexpr double betweenLinks = 4;

void open(const char* address)
{
    QDesktopServices::openUrl(QUrl(qString(address)));
}

/// Something with a control at its end, alone in its card.
QWidget* makeWideRow(QWidget* text, QWidget* control, double endMargin)
{
    auto* row = new QWidget;
    auto* layout = new QVBoxLayout(row);
    layout->setContentsMargins(directed(inRow(cardEdge), scaled(12), inRow(endMargin), scaled(12)));
    layout->addLayout(new RowLayout(text, control));
    return row;
}

}

DiagnosticsSection::DiagnosticsSection(Services& services, QWidget* parent)
    : QWidget(parent),
      services_(services),
      words_(services.ports.translator),
      explanation_(makeExplanation())
{
    auto* card = new Card;
    card->addRow(makeTests(), cardEdge);
    card->addRow(explanation_, cardEdge);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);
    statusChange_ = services_.notifications.onChange([this] { showStatus(); });
    showStatus();
}

QWidget* DiagnosticsSection::makeTests()
{
    auto* caption = new TextLabel(TextStyle::subheadline, Ink::secondary);
    caption->setText(words_(texts::diagnosticsCaption));
    caption->setWrapping(true);
    auto* banner = makeButton(words_(texts::testBanner));
    connect(banner, &QPushButton::clicked, this, [this] {
        services_.actions.testBanner();
        didRunBannerTest_ = true;
        showStatus();
    });
    auto* sample = makeButton(words_(texts::playSample));
    sample->setToolTip(words_(texts::sampleTooltip));
    sample->setAccessibleDescription(words_(texts::sampleTooltip));
    connect(sample, &QPushButton::clicked, this, [this] { services_.actions.playSample(); });

    auto* row = new QWidget;
    auto* layout = new QVBoxLayout(row);
    layout->setContentsMargins(inRow(cardEdge), scaled(12), inRow(cardEdge), scaled(14));
    layout->setSpacing(scaled(8));
    layout->addWidget(caption);
    auto* buttons = new FlowLayout(scaled(8));
    buttons->addWidget(banner);
    buttons->addWidget(sample);
    layout->addLayout(buttons);
    return row;
}

QWidget* DiagnosticsSection::makeExplanation()
{
    reason_ = new Note(TextStyle::subheadline);
    open_ = makeButton(words_(texts::openSystemSettings));
    connect(open_, &QPushButton::clicked, this, [this] { services_.actions.openNotificationSettings(); });
    auto* row = new QWidget;
    auto* layout = new QVBoxLayout(row);
    layout->setContentsMargins(inRow(cardEdge), scaled(10) + 1, inRow(cardEdge), scaled(10));
    layout->addLayout(new RowLayout(reason_, open_));
    return row;
}

void DiagnosticsSection::showStatus()
{
    const AuthStatus status = services_.notifications.status();
    const bool isDenied = status == AuthStatus::denied;
    reason_->setNote("bell.slash", Tone::orange,
                     words_(isDenied ? texts::bannersOff : texts::testBannerNotShown));
    open_->setVisible(isDenied);
    explanation_->setVisible(didRunBannerTest_ && (isDenied || status == AuthStatus::unavailable));
}

GeneralPane::GeneralPane(Services& services, const Windows& windows, QWidget* parent)
    : PaneColumn(parent),
      services_(services),
      words_(services.ports.translator)
{
    addNotifications();
    addHeading(words_(texts::diagnostics));
    addSection(new DiagnosticsSection(services_));
    addSetup(windows);
    addSupport();
    addAbout();
    finish();

    storeChange_ = services_.store.onChange([this] { showSettings(); });
    statusChange_ = services_.notifications.onChange([this] { showPermission(); });
    showSettings();
    showPermission();
}

void GeneralPane::addNotifications()
{
    const Words& words = words_;
    mute_ = new SwitchRow(words(texts::muteAllNotifications));
    connect(mute_->control(), &QAbstractButton::toggled, this,
            [this](bool isMuted) { services_.actions.setMuted(isMuted); });
    launch_ = new SwitchRow(words(texts::launchAtLogin));
    connect(launch_->control(), &QAbstractButton::toggled, this, [this](bool isWanted) {
        const auto failure = services_.actions.setLaunchAtLogin(isWanted);
        launch_->showError(failure ? words_(*failure) : QString());
    });
    permission_ = new TextLabel(TextStyle::body, Ink::secondary);
    addHeading(words(texts::notifications));
    Card* card = addCard();
    card->addRow(mute_, cardEdge);
    card->addRow(launch_, cardEdge);
    card->addRow(new SettingRow(words(texts::permission), permission_), cardEdge);
}

void GeneralPane::addSetup(const Windows& windows)
{
    auto* walkthrough = new ActivatableRow(words_(texts::showWalkthrough));
    walkthrough->setToolTip(words_(texts::showWalkthroughTooltip));
    walkthrough->setAccessibleDescription(words_(texts::showWalkthroughTooltip));
    connect(walkthrough, &QAbstractButton::clicked, this, windows.openWalkthrough);
    addHeading(words_(texts::setup));
    addCard()->addRow(walkthrough);
}

void GeneralPane::addSupport()
{
    auto* text = new TextLabel(TextStyle::body);
    text->setText(words_(texts::supportText));
    text->setWrapping(true);
    auto* support = new QPushButton(symbolIcon("cup.and.saucer.fill"), words_(texts::supportButton));
    support->setAutoDefault(false);
    connect(support, &QPushButton::clicked, this, [this] { open(product::supportPage); });
    addHeading(words_(texts::support));
    addCard()->addRow(makeWideRow(text, support, cardEdge));
}

void GeneralPane::addAbout()
{
    auto* name = new TextLabel(TextStyle::bodyMedium);
    name->setText(words_(texts::chimewell));
    auto* version = new TextLabel(TextStyle::subheadline, Ink::secondary);
    version->setText(words_({texts::version, {std::string(product::version)}}));
    version->setSelectable(true);
    auto* product = new QWidget;
    auto* lines = new QVBoxLayout(product);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(name);
    lines->addWidget(version);
    addHeading(words_(texts::about));
    addCard()->addRow(makeWideRow(product, makeLinks(), cardEdge - flatPadding));
}

QWidget* GeneralPane::makeLinks()
{
    auto* links = new QWidget;
    auto* line = new QHBoxLayout(links);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(scaled(betweenLinks));
    const auto add = [&](Text text, const char* address) {
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
    mute_->control()->show(settings.globalMuted);
    launch_->control()->show(settings.launchAtLogin);
}

void GeneralPane::showPermission()
{
    permission_->setText(words_(permissionText(services_.notifications.status())));
}

}
