// SPDX-License-Identifier: MIT
#include "ui/onboarding/onboarding_steps.h"

#include "presentation/settings_model.h"
#include "ui/controls/card.h"
#include "ui/controls/marks.h"
#include "ui/controls/text_label.h"
#include "ui/look/metrics.h"
#include "values/texts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace chimewell {

namespace {

constexpr double iconSize = 52;
constexpr double widestText = 480;

constexpr double sidePadding = 48;
constexpr double above = 44;
constexpr double below = 16;
constexpr double underHeader = 24;

constexpr double nodeWidth = 120;
constexpr double tile = 64;
constexpr double symbolSize = 28;

QHBoxLayout* rowLayout(QWidget* row)
{
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(scaled(15), scaled(12), scaled(15), scaled(12));
    return layout;
}

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

StepPage::StepPage(OnboardingStep step, QWidget* content, const Words& words, QWidget* parent)
    : QWidget(parent),
      header_(new StepHeader(heading(step), words))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(sidePadding), scaled(above), scaled(sidePadding), scaled(below));
    layout->setSpacing(0);
    layout->addWidget(header_);
    layout->addSpacing(scaled(underHeader));
    layout->addWidget(content);
    layout->addStretch(1);
}

WelcomeStep::WelcomeStep(const Words& words, QWidget* parent) : QWidget(parent)
{
    auto* body = new BalancedLabel(TextStyle::body, Ink::text, scaled(widestText));
    body->setMarkedText(words(texts::welcomeBody));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(body);
}

FlowDiagram::FlowDiagram(const Words& words, QWidget* parent) : QWidget(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(scaled(10));
    grid->setVerticalSpacing(scaled(12));
    addNode(*grid, "terminal", words(texts::yourAgent));
    addNode(*grid, "bolt.horizontal.circle", words(texts::hook));
    addNode(*grid, "bell.badge", words(texts::chimewell));
}

void FlowDiagram::addNode(QGridLayout& grid, std::string_view symbol, const QString& name)
{
    // Nodes stand in every other column, arrows between them.
    const int column = grid.count() == 0 ? 0 : grid.columnCount() + 1;
    if (column > 0)
        grid.addWidget(new SymbolLabel("arrow.right", metrics::rowIcon, Tone::secondary), 0, column - 1,
                       Qt::AlignCenter);
    auto* card = new Card;
    card->setContent(new SymbolLabel(symbol, symbolSize, Tone::accent), (tile - symbolSize) / 2 - 1);
    grid.addWidget(card, 0, column, Qt::AlignCenter);
    auto* label = new TextLabel(TextStyle::bodyMedium);
    label->setCentred(true);
    label->setText(name);
    grid.addWidget(label, 1, column);
    grid.setColumnMinimumWidth(column, scaled(nodeWidth));
}

HowItWorksStep::HowItWorksStep(const Words& words, QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, scaled(20), 0, 0);
    layout->addWidget(new FlowDiagram(words), 0, Qt::AlignHCenter);
}

NotificationsStep::NotificationsStep(Services& services, QWidget* parent)
    : QWidget(parent),
      services_(services),
      words_(services.ports.translator)
{
    auto* card = new Card;
    card->addRow(makeStatusRow());
    card->addRow(denied_ = makeDeniedRow(), 16);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);

    subscription_ = services_.notifications.onChange([this] { showStatus(); });
    showStatus();
}

QWidget* NotificationsStep::makeStatusRow()
{
    auto* row = new QWidget;
    auto* name = new TextLabel(TextStyle::body);
    name->setText(words_(texts::status));
    status_ = new TextLabel(TextStyle::body, Ink::secondary);
    status_->setWrapping(true);
    allow_ = new QPushButton(words_(texts::allowNotifications));
    connect(allow_, &QPushButton::clicked, this, [this] { services_.actions.allowNotifications(); });

    auto* layout = rowLayout(row);
    layout->setSpacing(scaled(4));
    layout->addWidget(name);
    layout->addWidget(status_, 1);
    layout->addWidget(allow_);
    row->setMinimumHeight(scaled(metrics::controlHeight) + 2 * scaled(12));
    return row;
}

QWidget* NotificationsStep::makeDeniedRow()
{
    auto* row = new QWidget;
    auto* note = new Note(TextStyle::subheadline, Ink::secondary);
    note->setNote("info.circle", Tone::secondary, words_(texts::deniedNote));
    auto* open = new QPushButton(words_(texts::openSystemSettings));
    connect(open, &QPushButton::clicked, this, [this] { services_.actions.openNotificationSettings(); });

    auto* layout = rowLayout(row);
    layout->setSpacing(scaled(16));
    layout->addWidget(note, 1);
    layout->addWidget(open);
    return row;
}

void NotificationsStep::showStatus()
{
    const AuthStatus status = services_.notifications.status();
    status_->setText(words_(permissionText(status)));
    allow_->setEnabled(status == AuthStatus::notDetermined); // otherwise no question appears
    denied_->setVisible(status == AuthStatus::denied);
}

}
