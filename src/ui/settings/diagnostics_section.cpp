// SPDX-License-Identifier: MIT
#include "ui/settings/diagnostics_section.h"

#include "ui/controls/card.h"
#include "ui/controls/edges.h"
#include "ui/controls/flow_layout.h"
#include "ui/controls/note.h"
#include "ui/settings/row_layout.h"
#include "values/texts.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace chimewell {

namespace {

QPushButton* makeButton(const QString& text)
{
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    return button;
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

}
