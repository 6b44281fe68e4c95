// SPDX-License-Identifier: MIT
#include "ui/settings/recent_pane.h"

#include "presentation/panel_model.h"
#include "ui/controls/accessibility.h"
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/controls/text_label.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"
#include "values/texts.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace chimewell {

namespace {

constexpr double aboveAndBelow = 10;

TextLabel* makeLine(TextStyle style, Ink ink, QVBoxLayout& lines)
{
    auto* label = new TextLabel(style, ink);
    label->setWrapping(true);
    lines.addWidget(label);
    return label;
}

constexpr int refreshMilliseconds = 30'000;
constexpr double emptySymbol = 44, introHeight = 36;
constexpr int allRoom = 1000; // beside what would stay empty

}

RecentRowView::RecentRowView(const Words& words, std::string id, QWidget* parent)
    : QWidget(parent),
      words_(words),
      id_(std::move(id)),
      icon_(new SymbolLabel("bell", metrics::rowIcon, Tone::secondary)),
      open_(new QPushButton(symbolIcon("arrow.up.forward.app"), words_(texts::openSession)))
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleRole(this, QAccessible::ListItem);
    auto* texts = new QWidget;
    auto* lines = new QVBoxLayout(texts);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(scaled(1));
    title_ = makeLine(TextStyle::bodyMedium, Ink::text, *lines);
    message_ = makeLine(TextStyle::subheadline, Ink::secondary, *lines);
    time_ = makeLine(TextStyle::caption, Ink::secondary, *lines);
    open_->setFlat(true);
    open_->setAutoDefault(false);
    open_->setToolTip(words_(texts::jumpToTerminal));
    connect(open_, &QPushButton::clicked, this, &RecentRowView::openSession);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(directed(inRow(cardEdge), scaled(aboveAndBelow) + 1,
                                        inRow(cardEdge - flatPadding), scaled(aboveAndBelow)));
    layout->setSpacing(scaled(8));
    layout->addWidget(icon_, 0, Qt::AlignTop);
    layout->addLayout(new RowLayout(texts, open_), 1);
}

QWidget* RecentRowView::follow(QWidget* previous)
{
    setTabOrder(previous, this);
    setTabOrder(this, open_);
    return open_;
}

void RecentRowView::show(const RecentRow& row)
{
    icon_->setSymbol(iconName(row.event), iconTone(row.event));
    title_->setText(words_(row.title));
    message_->setText(words_(row.message));
    time_->setText(qString(row.timeText));
    setAccessibleName(words_(row.title) + QStringLiteral(", ") + words_(row.message) + QStringLiteral(", ") +
                      qString(row.timeText));
    open_->setVisible(row.hasSession());
    open_->setAccessibleName(
        words_({texts::openSessionOf, {Phrase(texts::rowAtTime, {row.title, row.timeText})}}));
}

void RecentRowView::paintEvent(QPaintEvent*)
{
    if (!ChimewellStyle::showsFocus(this)) return;
    QPainter painter(this);
    paintFocusRing(painter, QRectF(rect()).adjusted(2, 3, -2, -2), scaled(metrics::controlRadius));
}

void RecentRowView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT openSession();
    else
        QWidget::keyPressEvent(event); // the pane moves between the rows
}

void RecentRowView::focusInEvent(QFocusEvent*)
{
    update();
}

void RecentRowView::focusOutEvent(QFocusEvent*)
{
    update();
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
