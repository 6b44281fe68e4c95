// SPDX-License-Identifier: MIT
#include "ui/walkthrough/launch_at_login_row.h"

#include "ui/controls/edges.h"
#include "ui/controls/note.h"
#include "ui/controls/switch_button.h"
#include "values/texts.h"

#include <QGridLayout>
#include <QMouseEvent>

namespace chimewell {

LaunchAtLoginRow::LaunchAtLoginRow(Services& services, QWidget* parent)
    : QWidget(parent),
      services_(services),
      words_(services.ports.translator),
      switch_(new SwitchButton(words_(texts::startAtLogin))),
      error_(new Note)
{
    auto* name = new TextLabel(TextStyle::body);
    name->setWrapping(true);
    name->setText(words_(texts::startAtLogin));
    auto* caption = new TextLabel(TextStyle::caption, Ink::secondary);
    caption->setWrapping(true);
    caption->setText(words_(texts::startAtLoginCaption));
    switch_->setAccessibleDescription(words_(texts::startAtLoginCaption));

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(directed(scaled(15), scaled(10), scaled(15) - ringRoom, scaled(10)));
    grid->setHorizontalSpacing(scaled(8));
    grid->setVerticalSpacing(scaled(2));
    grid->addWidget(new SymbolLabel("power", metrics::rowIcon, Tone::secondary), 0, 0);
    grid->addWidget(name, 0, 1);
    grid->addWidget(switch_, 0, 2);
    grid->addWidget(caption, 1, 1);
    grid->addWidget(error_, 2, 0, 1, 3);
    grid->setColumnStretch(1, 1);

    error_->setContentsMargins(0, scaled(4), 0, 0);
    error_->hide();
    connect(switch_, &QAbstractButton::toggled, this, [this](bool isOn) { set(isOn); });
    subscription_ = services_.store.onChange([this] { showSetting(); });
    showSetting();
}

void LaunchAtLoginRow::showSetting()
{
    switch_->show(services_.store.settings().launchAtLogin);
}

void LaunchAtLoginRow::set(bool wanted)
{
    const auto failure = services_.actions.setLaunchAtLogin(wanted);
    if (failure) error_->setNote("exclamationmark.triangle", Tone::red, words_(*failure));
    error_->setVisible(failure.has_value());
}

void LaunchAtLoginRow::mouseReleaseEvent(QMouseEvent* event)
{
    // The words are as good a place to click as the switch.
    if (event->button() == Qt::LeftButton && rect().contains(event->pos())) switch_->click();
}

}
