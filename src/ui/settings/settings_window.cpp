// SPDX-License-Identifier: MIT
#include "ui/settings/settings_window.h"

#include "ui/controls/accessibility.h"
#include "ui/controls/card.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/settings/events_pane.h"
#include "ui/settings/general_pane.h"
#include "ui/settings/providers_pane.h"
#include "ui/settings/recent_pane.h"
#include "ui/settings/sidebar.h"
#include "values/texts.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>

namespace chimewell {

namespace {

constexpr double wantedWidth = 780, wantedHeight = 640, leastWidth = 640, leastHeight = 440;
constexpr double aroundError = 24;
constexpr int aroundWindow = 32; // what is left of the screen

QScrollArea* makeScrollArea(QWidget* pane)
{
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // the keyboard goes through what is inside
    area->setWidgetResizable(true);
    area->setWidget(pane);
    area->viewport()->setAutoFillBackground(false);
    pane->setAutoFillBackground(false);
    return area;
}

}

SettingsWindow::SettingsWindow(Services& services, const Windows& windows, QWidget* parent)
    : QWidget(parent, Qt::Window),
      services_(services),
      words_(services.ports.translator),
      windows_(windows),
      sidebar_(new Sidebar(words_)),
      errorNote_(new Note(TextStyle::subheadline)),
      error_(makeErrorNote()),
      stack_(new QStackedWidget)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(words_(texts::settingsTitle));
    setAccessibleRole(this, QAccessible::Window);
    const QSize room = screen()->availableSize() - QSize(aroundWindow, aroundWindow);
    setMinimumSize(QSize(scaled(leastWidth), scaled(leastHeight)).boundedTo(room));
    resize(QSize(scaled(wantedWidth), scaled(wantedHeight)).boundedTo(room));

    auto* content = new QVBoxLayout;
    content->setSpacing(0);
    content->addWidget(error_);
    content->addWidget(stack_, 1);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(sidebar_);
    layout->addLayout(content, 1);

    connect(sidebar_, &Sidebar::chosen, this, [this](Pane pane) { show(pane); });
    storeChange_ = services_.store.onChange([this] { showError(); });
    showError();
    services_.cards.clearMessages();
    services_.cards.refresh();
    show(allPanes.front());
    sidebar_->setFocus();
}

SettingsWindow::~SettingsWindow()
{
    hide(); // what is being edited is stored while there is still somebody who does it
}

QWidget* SettingsWindow::makeErrorNote()
{
    errorNote_->setContentsMargins(inRow(cardEdge), scaled(10), inRow(cardEdge), scaled(10));
    auto* card = new Card;
    card->addRow(errorNote_);
    auto* holder = new QWidget;
    auto* layout = new QVBoxLayout(holder);
    layout->setContentsMargins(scaled(aroundError), scaled(12), scaled(aroundError), 0);
    layout->addWidget(card);
    return holder;
}

void SettingsWindow::showError()
{
    const auto& error = services_.store.lastError();
    error_->setVisible(error.has_value());
    if (error) errorNote_->setNote("exclamationmark.triangle", Tone::red, words_(*error));
}

QWidget* SettingsWindow::makePane(Pane pane)
{
    switch (pane) {
    case Pane::events:
        return makeScrollArea(new EventsPane(services_));
    case Pane::providers:
        return makeScrollArea(new ProvidersPane(services_));
    case Pane::recent:
        return makeScrollArea(new RecentPane(services_));
    case Pane::general:
        break;
    }
    return makeScrollArea(new GeneralPane(services_, windows_));
}

void SettingsWindow::show(Pane pane)
{
    QWidget*& shown = panes_[static_cast<std::size_t>(pane)];
    if (!shown) {
        shown = makePane(pane);
        shown->setObjectName(qString(rawName(pane)));
        stack_->addWidget(shown);
    }
    stack_->setCurrentWidget(shown);
    sidebar_->choose(pane);
}

bool SettingsWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        // Agents and users may have changed what it shows while they were elsewhere.
        services_.cards.refresh();
        services_.notifications.refreshStatus();
    }
    return QWidget::event(event);
}

}
