// SPDX-License-Identifier: MIT
#include "ui/settings/settings_window.h"

#include "ui/controls/accessibility.h"
#include "ui/controls/card.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/settings/pane.h"
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
constexpr int aroundWindow = 32; // of the screen, for frame and title

}

SettingsWindow::SettingsWindow(Services& services, const Windows& windows)
    : QWidget(nullptr, Qt::Window),
      services_(services),
      words_(services.ports.translator),
      windows_(windows),
      sidebar_(new Sidebar(words_)),
      error_(new Note(TextStyle::subheadline)),
      errorHolder_(makeErrorHolder()),
      stack_(new QStackedWidget)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(words_(texts::settingsTitle));
    setAccessibleRole(this, QAccessible::Window);
    const QSize room = screen()->availableSize() - QSize(aroundWindow, aroundWindow);
    setMinimumSize(QSize(scaled(leastWidth), scaled(leastHeight)).boundedTo(room));
    resize(QSize(scaled(wantedWidth), scaled(wantedHeight)).boundedTo(room));

    auto* content = makeColumn(nullptr);
    content->addWidget(errorHolder_);
    content->addWidget(stack_, 1);
    auto* layout = makeLine(this);
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
    hide(); // stores what is being edited while the controls still exist
}

QWidget* SettingsWindow::makeErrorHolder()
{
    error_->setContentsMargins(inRow(cardEdge), scaled(10), inRow(cardEdge), scaled(10));
    auto* card = new Card;
    card->addRow(error_);
    return padded(card, {scaled(aroundError), scaled(12), scaled(aroundError), 0});
}

void SettingsWindow::showError()
{
    const auto& error = services_.store.lastError();
    error_->showError(error ? words_(*error) : QString());
    errorHolder_->setVisible(error.has_value());
}

PaneColumn* SettingsWindow::makePane(Pane pane)
{
    switch (pane) {
    case Pane::events:
        return makeEventsPane(services_);
    case Pane::providers:
        return makeProvidersPane(services_);
    case Pane::recent:
        return makeRecentPane(services_);
    case Pane::general:
        break;
    }
    return makeGeneralPane(services_, windows_);
}

void SettingsWindow::show(Pane pane)
{
    QScrollArea*& shown = panes_[static_cast<std::size_t>(pane)];
    if (!shown) {
        shown = new QScrollArea;
        setScrolledContent(*shown, makePane(pane));
        shown->setObjectName(qString(rawName(pane)));
        stack_->addWidget(shown);
    }
    stack_->setCurrentWidget(shown);
    sidebar_->choose(pane);
}

bool SettingsWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        // Agents and users may have changed what it shows meanwhile.
        services_.cards.refresh();
        services_.notifications.refreshStatus();
    }
    return QWidget::event(event);
}

}
