// SPDX-License-Identifier: MIT
#include "ui/settings/recent_pane.h"

#include "presentation/panel_model.h"
#include "ui/controls/card.h"
#include "ui/controls/edges.h"
#include "ui/controls/link_button.h"
#include "ui/controls/symbol_label.h"
#include "ui/controls/text_label.h"
#include "ui/settings/recent_row_view.h"
#include "values/texts.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <cstddef>

namespace chimewell {

namespace {

constexpr int refreshMilliseconds = 30'000;
constexpr double emptySymbol = 44, introHeight = 36;
constexpr int allRoom = 1000; // beside what would stay empty

}

RecentPane::RecentPane(Services& services, QWidget* parent)
    : PaneColumn(parent),
      services_(services),
      words_(services.ports.translator),
      clear_(new LinkButton(words_(texts::clear)))
{
    addIntro(words_(texts::recentIntro), clear_);
    card_ = addCard();
    empty_ = makeEmpty();
    column()->addWidget(empty_, allRoom);
    finish();
    connect(clear_, &QPushButton::clicked, this, [this] { services_.actions.clearHistory(); });
    historyChange_ = services_.history.onChange([this] { showHistory(); });
    showHistory();
}

QWidget* RecentPane::makeEmpty()
{
    auto* title = new TextLabel(TextStyle::headline);
    title->setText(words_(texts::noRecentActivity));
    auto* line = new TextLabel(TextStyle::body, Ink::secondary);
    line->setText(words_(texts::recentEmpty));
    auto* empty = new QWidget;
    auto* layout = new QVBoxLayout(empty);
    // In the middle of the pane, not of what is left below its first line.
    layout->setContentsMargins(0, 0, 0, scaled(introHeight));
    layout->setSpacing(0);
    layout->addStretch(1);
    layout->addWidget(new SymbolLabel("clock.badge.questionmark", emptySymbol, Tone::secondary), 0,
                      Qt::AlignHCenter);
    layout->addSpacing(scaled(12));
    for (TextLabel* label : {title, line}) {
        label->setWrapping(true);
        label->setCentred(true);
        layout->addWidget(label);
        layout->addSpacing(scaled(2));
    }
    layout->addStretch(1);
    return empty;
}

RecentRowView* RecentPane::makeRow(const EventHistory::Entry& entry)
{
    auto* row = new RecentRowView(words_, entry.id);
    connect(row, &RecentRowView::openSession, this,
            [this, term = entry.term, cwd = entry.cwd] { services_.actions.openSession(term, cwd); });
    return row;
}

void RecentPane::showHistory()
{
    const auto& entries = services_.history.entries();
    bool isLonger = false;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        // New ones come in above those that are there.
        if (i == rows_.size() || rows_[i]->id() != entries[i].id) {
            RecentRowView* row = makeRow(entries[i]);
            rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(i), row);
            card_->insertRow(static_cast<int>(i), row, afterSymbol);
            isLonger = true;
        }
        rows_[i]->show(recentRow(entries[i], services_.ports.locale, services_.ports.clock.now()));
    }
    while (rows_.size() > entries.size()) {
        if (rows_.back()->hasFocus()) moveFocus(-1);
        delete rows_.back();
        rows_.pop_back();
    }
    QWidget* last = clear_;
    for (std::size_t i = 0; isLonger && i < rows_.size(); ++i)
        last = rows_[i]->follow(last);
    card_->setVisible(!entries.empty());
    empty_->setVisible(entries.empty());
    clear_->setEnabled(!entries.empty());
}

void RecentPane::showEvent(QShowEvent* event)
{
    PaneColumn::showEvent(event);
    showHistory();
    minute_.start(refreshMilliseconds, this);
}

void RecentPane::hideEvent(QHideEvent* event)
{
    PaneColumn::hideEvent(event);
    minute_.stop();
}

void RecentPane::timerEvent(QTimerEvent*)
{
    showHistory();
}

void RecentPane::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Down)
        moveFocus(1);
    else if (event->key() == Qt::Key_Up)
        moveFocus(-1);
    else
        PaneColumn::keyPressEvent(event);
}

void RecentPane::moveFocus(int rows)
{
    const auto now = std::ranges::find_if(rows_, [](const RecentRowView* row) { return row->hasFocus(); });
    if (now == rows_.end()) return;
    const auto to = (now - rows_.begin()) + rows;
    if (to < 0 || to >= static_cast<std::ptrdiff_t>(rows_.size())) return;
    rows_[static_cast<std::size_t>(to)]->setFocus(Qt::TabFocusReason);
}

}
