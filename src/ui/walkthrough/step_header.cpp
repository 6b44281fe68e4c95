// SPDX-License-Identifier: MIT
#include "ui/walkthrough/step_header.h"

#include "ui/controls/balanced_label.h"
#include "ui/controls/symbol_label.h"

#include <QVBoxLayout>

namespace chimewell {

namespace {

constexpr double iconSize = 52;
constexpr double widestText = 480;

}

StepHeader::StepHeader(const StepHeading& heading, const Words& words, QWidget* parent)
    : QWidget(parent),
      title_(new TextLabel(TextStyle::title))
{
    title_->setWrapping(true);
    title_->setCentred(true);
    title_->setText(words(heading.title));
    title_->setAccessibleDescription(words(heading.subtitle));
    title_->setFocusPolicy(Qt::ClickFocus); // none for the tab key
    auto* subtitle = new BalancedLabel(TextStyle::body, Ink::secondary, scaled(widestText));
    subtitle->setText(words(heading.subtitle));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new SymbolLabel(heading.icon, iconSize, Tone::accent), 0, Qt::AlignHCenter);
    layout->addSpacing(scaled(12));
    layout->addWidget(title_);
    layout->addSpacing(scaled(4));
    layout->addWidget(subtitle);
}

void StepHeader::announce()
{
    title_->setFocus(Qt::OtherFocusReason);
}

}
