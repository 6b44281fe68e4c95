// SPDX-License-Identifier: MIT
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/confirm_dialog.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/controls/text_label.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/metrics.h"
#include "ui/onboarding/onboarding_steps.h"
#include "values/texts.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace chimewell {

namespace {

/// One agent with a button that installs its hooks, and what came of that.
class ProviderInstallRow final : public QWidget {
public:
    ProviderInstallRow(ProviderCard& card, const Words& words);

private:
    void showCard();
    void ask();

    ProviderCard& card_;
    const Words words_;
    QPushButton* install_;
    Note* info_;
    Note* error_;
    bool isClicked_ = false; ///< While a click has to wait.
    Subscription subscription_;
};

ProviderInstallRow::ProviderInstallRow(ProviderCard& card, const Words& words)
    : card_(card),
      words_(words),
      install_(new QPushButton),
      info_(new Note(TextStyle::subheadline)),
      error_(new Note(TextStyle::subheadline))
{
    auto* line = makeLine(nullptr, 8);
    line->addWidget(new TextLabel(TextStyle::bodyMedium, Tone::neutral, qString(card_.displayName())));
    if (card_.isBeta()) line->addWidget(makeBetaBadge(words_));
    line->addStretch(1);
    line->addWidget(install_);
    reserveWidth(*install_, {words_(texts::install), words_(texts::installed)});

    auto* layout = makeColumn(this, 6);
    layout->setContentsMargins(scaled(15), scaled(11), scaled(15), scaled(11));
    layout->addLayout(line);
    layout->addWidget(info_);
    layout->addWidget(error_);

    connect(install_, &QPushButton::clicked, this, [this] { ask(); });
    subscription_ = card_.onChange([this] { showCard(); });
    showCard();
}

void ProviderInstallRow::showCard()
{
    const std::string name(card_.displayName());
    install_->setText(words_(card_.isInstalled() ? texts::installed : texts::install));
    install_->setAccessibleName(
        words_({card_.isInstalled() ? texts::installedOf : texts::installOf, {name}}));
    install_->setEnabled(card_.canInstall());
    install_->setVisible(card_.isAvailable());
    ChimewellStyle::setDelayed(install_, card_.isPausing());

    const auto& news = card_.infoMessage();
    const QString info = news ? words_(*news) : QString();
    const QString error = words_(card_.errorMessage().value_or(Phrase()));
    info_->setNote("checkmark.circle", Tone::green, info);
    info_->setVisible(!info.isEmpty());
    error_->showError(error);
    // Read aloud when the keyboard focus comes back from the question.
    install_->setAccessibleDescription(error.isEmpty() ? info : error);
    isClicked_ = isClicked_ && card_.canInstall();
    if (isClicked_ && !card_.isPausing()) ask();
}

void ProviderInstallRow::ask()
{
    isClicked_ = card_.isPausing();
    if (isClicked_) return;
    auto* question = new ConfirmDialog(card_.confirmation(PendingAction::install), words_, window());
    connect(question, &QDialog::accepted, this, [this] { card_.perform(PendingAction::install); });
    question->open();
}

}

QWidget* makeInstallHooksStep(Services& services)
{
    auto* agents = new Card;
    for (const auto& card : services.cards.all())
        agents->addRow(new ProviderInstallRow(*card, Words(services.ports.translator)), 16);
    return agents;
}

}
