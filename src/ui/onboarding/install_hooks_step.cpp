// SPDX-License-Identifier: MIT
#include "ui/onboarding/install_hooks_step.h"

#include "ui/controls/card.h"
#include "ui/controls/confirm_dialog.h"
#include "ui/controls/marks.h"
#include "ui/controls/text_label.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/metrics.h"
#include "values/texts.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double smallestButton = 84;

}

ProviderInstallRow::ProviderInstallRow(ProviderCard& card, const Words& words, QWidget* parent)
    : QWidget(parent),
      card_(card),
      words_(words),
      install_(new QPushButton),
      info_(new Note(TextStyle::subheadline)),
      error_(new Note(TextStyle::subheadline))
{
    auto* name = new TextLabel(TextStyle::bodyMedium);
    name->setText(qString(card_.displayName()));
    auto* line = new QHBoxLayout;
    line->setSpacing(scaled(8));
    line->addWidget(name);
    if (card_.isBeta()) line->addWidget(new BetaBadge(words_(texts::beta), words_(texts::betaTooltip)));
    line->addStretch(1);
    line->addWidget(install_);
    // As wide with either word, so that nothing moves once it is installed.
    for (const Text& text : {texts::install, texts::installed}) {
        install_->setText(words_(text));
        install_->setMinimumWidth(
            std::max({scaled(smallestButton), install_->minimumWidth(), install_->sizeHint().width()}));
    }

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(15), scaled(11), scaled(15), scaled(11));
    layout->setSpacing(scaled(6));
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
    ChimewellStyle::setHeld(install_, card_.isPausing());

    const auto& news = card_.infoMessage();
    const QString info = news ? words_(*news) : QString();
    const QString error = words_(card_.errorMessage().value_or(Phrase()));
    info_->setNote("checkmark.circle", Tone::green, info);
    info_->setVisible(!info.isEmpty());
    error_->setNote("exclamationmark.triangle", Tone::red, error);
    error_->setVisible(!error.isEmpty());
    // Heard when the keyboard comes back from the question.
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

InstallHooksStep::InstallHooksStep(ProviderCards& cards, const Words& words, QWidget* parent)
    : QWidget(parent)
{
    auto* agents = new Card;
    for (const auto& card : cards.all())
        agents->addRow(new ProviderInstallRow(*card, words), 16);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(agents);
}

}
