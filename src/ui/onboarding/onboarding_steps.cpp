// SPDX-License-Identifier: MIT
#include "ui/onboarding/onboarding_steps.h"

#include "presentation/settings_model.h"
#include "ui/controls/card.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/look/symbol.h"
#include "values/texts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace chimewell {

namespace {

constexpr double iconSize = 52, widestText = 480;
constexpr double sidePadding = 48, above = 44, below = 16, underHeader = 24;
constexpr double nodeWidth = 120, tile = 64, symbolSize = 28;
constexpr double bannerWidth = 380, buttonRowHeight = 52;

/// What a banner looks like; a picture.
QWidget* makeBannerPicture(const Words& words)
{
    auto* title = new ElidedLabel(TextStyle::bodyMedium);
    title->setFullText(words({texts::titleAndDetail, {texts::waitingInput, texts::exampleProject}}));
    auto* action = new CapsuleLabel(TextStyle::subheadline);
    action->show(words(texts::openSession), Tone::secondary);
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(scaled(12));
    grid->setVerticalSpacing(scaled(4));
    grid->setColumnStretch(1, 1);
    grid->addWidget(new SymbolLabel("bell.badge", symbolSize, Tone::accent), 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(title, 0, 1);
    grid->addWidget(makeParagraph(TextStyle::subheadline, Tone::secondary, words(texts::waitingInputBody)), 1,
                    1);
    grid->addWidget(action, 2, 1, Qt::AlignLeft);
    auto* banner = new Card;
    banner->setContent(content, 14);
    banner->setFixedWidth(scaled(bannerWidth));
    return banner;
}

/// What the product does, and that the set-up may be skipped.
QWidget* makeWelcomeStep(const Words& words)
{
    auto* body = new BalancedLabel(TextStyle::body, Tone::neutral, scaled(widestText));
    body->setMarkedText(words(texts::welcomeBody));
    auto* step = new QWidget;
    auto* layout = makeColumn(step, underHeader);
    layout->addWidget(body);
    auto* line =
        makeLine(nullptr); // with an alignment, the layout would not ask for the height at that width
    line->addStretch(1);
    line->addWidget(makeBannerPicture(words));
    line->addStretch(1);
    layout->addLayout(line);
    return step;
}

/// A text with a button at the end of its line.
SettingRow* makeButtonRow(const QString& text, QPushButton* button)
{
    auto* row = new SettingRow(text, button);
    row->setMinimumHeight(scaled(buttonRowHeight));
    return row;
}

/// Agent, hook and Chimewell, joined by arrows, and what is heard at the end.
QWidget* makeHowItWorksStep(Services& services, const Words& words)
{
    auto* step = new QWidget;
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(scaled(10));
    grid->setVerticalSpacing(scaled(12));
    const auto addNode = [&](int column, std::string_view symbol, const Text& name) {
        auto* card = new Card;
        card->setContent(new SymbolLabel(symbol, symbolSize, Tone::accent), (tile - symbolSize) / 2 - 1);
        auto* label = new TextLabel(TextStyle::bodyMedium, Tone::neutral, words(name));
        label->setCentred();
        grid->addWidget(card, 0, column, Qt::AlignCenter);
        grid->addWidget(label, 1, column);
        grid->setColumnMinimumWidth(column, scaled(nodeWidth));
    };
    addNode(0, "terminal", texts::yourAgent);
    addNode(2, "bolt.horizontal.circle", texts::hook);
    addNode(4, "bell.badge", texts::chimewell);
    for (const int column : {1, 3})
        grid->addWidget(new SymbolLabel("arrow.right", metrics::rowIcon), 0, column, Qt::AlignCenter);
    auto* hear = new QPushButton(symbolIcon("waveform"), words(texts::hearIt));
    QObject::connect(hear, &QPushButton::clicked, hear,
                     [&services] { services.actions.preview(CanonicalEvent::waitingInput); });
    auto* card = new Card;
    card->addRow(makeButtonRow(words(texts::hearItCaption), hear));
    auto* layout = makeColumn(step, 32);
    layout->setContentsMargins(0, scaled(20), 0, 0);
    grid->setAlignment(Qt::AlignHCenter);
    layout->addLayout(grid);
    layout->addWidget(card);
    return step;
}

/// Whether banners may be shown, and what can be done about it.
class NotificationsStep final : public QWidget {
public:
    explicit NotificationsStep(Services& services);

private:
    void showStatus();

    Services& services_;
    const Words words_;
    TextLabel* status_;
    QPushButton* allow_;
    QPushButton* try_;
    QWidget* denied_ = nullptr;
    Subscription subscription_;
};

NotificationsStep::NotificationsStep(Services& services)
    : services_(services),
      words_(services.ports.translator),
      status_(makeParagraph(TextStyle::body, Tone::secondary)),
      allow_(new QPushButton(words_(texts::allowNotifications))),
      try_(new QPushButton(words_(texts::tryIt)))
{
    connect(try_, &QPushButton::clicked, this, [this] { services_.actions.testBanner(); });
    connect(allow_, &QPushButton::clicked, this, [this] { services_.actions.allowNotifications(); });
    auto* row = new QWidget;
    auto* line = makeLine(row, 4);
    line->addWidget(makeParagraph(TextStyle::body, Tone::neutral, words_(texts::status)));
    line->addWidget(status_, 1);
    line->addWidget(allow_);
    row->setMinimumHeight(scaled(metrics::controlHeight) + 2 * scaled(12));

    auto* note = new Note(TextStyle::subheadline, Tone::secondary);
    note->setNote("info.circle", Tone::secondary, words_(texts::deniedNote));
    auto* open = new QPushButton(words_(texts::openSystemSettings));
    connect(open, &QPushButton::clicked, this, [this] { services_.actions.openNotificationSettings(); });
    denied_ = new QWidget;
    auto* deniedLine = makeLine(denied_, 16);
    deniedLine->addWidget(note, 1);
    deniedLine->addWidget(open);

    for (QHBoxLayout* each : {line, deniedLine})
        each->setContentsMargins(scaled(15), scaled(12), scaled(15), scaled(12));
    auto* card = new Card;
    card->addRow(row);
    card->addRow(denied_, 16);
    card->addRow(makeButtonRow(words_(texts::tryItCaption), try_), 16);
    makeColumn(this)->addWidget(card);
    subscription_ = services_.notifications.onChange([this] { showStatus(); });
    showStatus();
}

void NotificationsStep::showStatus()
{
    const AuthStatus status = services_.notifications.status();
    status_->setText(words_(permissionText(status)));
    allow_->setEnabled(status == AuthStatus::notDetermined); // otherwise no question appears
    denied_->setVisible(status == AuthStatus::denied);
    try_->setEnabled(status == AuthStatus::authorized || status == AuthStatus::provisional);
}

QWidget* makeContent(OnboardingStep step, Services& services)
{
    const Words words(services.ports.translator);
    switch (step) {
    case OnboardingStep::welcome:
        return makeWelcomeStep(words);
    case OnboardingStep::howItWorks:
        return makeHowItWorksStep(services, words);
    case OnboardingStep::notifications:
        return new NotificationsStep(services);
    case OnboardingStep::installHooks:
        return makeInstallHooksStep(services);
    case OnboardingStep::sounds:
        break;
    }
    return makeSoundsStep(services);
}

}

StepPage::StepPage(OnboardingStep step, Services& services) : title_(makeParagraph(TextStyle::title))
{
    const Words words(services.ports.translator);
    const StepHeading shown = heading(step);
    title_->setCentred();
    title_->setText(words(shown.title));
    title_->setAccessibleDescription(words(shown.subtitle));
    title_->setFocusPolicy(Qt::ClickFocus); // the tab key skips it
    auto* subtitle = new BalancedLabel(TextStyle::body, Tone::secondary, scaled(widestText));
    subtitle->setText(words(shown.subtitle));

    auto* layout = makeColumn(this);
    layout->setContentsMargins(scaled(sidePadding), scaled(above), scaled(sidePadding), scaled(below));
    layout->addWidget(new SymbolLabel(shown.icon, iconSize, Tone::accent), 0, Qt::AlignHCenter);
    layout->addSpacing(scaled(12));
    layout->addWidget(title_);
    layout->addSpacing(scaled(4));
    layout->addWidget(subtitle);
    layout->addSpacing(scaled(underHeader));
    layout->addWidget(makeContent(step, services));
    layout->addStretch(1);
}

void StepPage::announce()
{
    title_->setFocus(Qt::OtherFocusReason);
}

}
