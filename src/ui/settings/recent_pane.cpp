// SPDX-License-Identifier: MIT
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
#include "ui/settings/pane.h"
#include "values/texts.h"

#include <QBasicTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace chimewell {

namespace {

constexpr double aboveAndBelow = 10;
constexpr int refreshMilliseconds = 30'000;
constexpr double emptySymbol = 44, introHeight = 36;
constexpr int allRoom = 1000; // the stretch beside the empty rest of the column

/// One past alert in the settings.
class RecentRowView final : public QWidget {
public:
    RecentRowView(const Words& words, std::string entryId, std::function<void()> openSession);

    const std::string& id() const { return id_; }
    /// Puts the row after `previous` in the tab order and returns the last widget of the row.
    QWidget* follow(QWidget* previous);
    void show(const RecentRow& row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent*) override { update(); }
    void focusOutEvent(QFocusEvent*) override { update(); }

private:
    const Words words_;
    const std::string id_;
    const std::function<void()> openSession_;
    SymbolLabel* icon_;
    TextLabel* title_;
    TextLabel* message_;
    TextLabel* time_;
    QPushButton* open_;
};

RecentRowView::RecentRowView(const Words& words, std::string entryId, std::function<void()> openSession)
    : words_(words),
      id_(std::move(entryId)),
      openSession_(std::move(openSession)),
      icon_(new SymbolLabel("bell", metrics::rowIcon)),
      title_(makeParagraph(TextStyle::bodyMedium)),
      message_(makeParagraph(TextStyle::subheadline, Tone::secondary)),
      time_(makeParagraph(TextStyle::caption, Tone::secondary)),
      open_(new QPushButton(symbolIcon("arrow.up.forward.app"), words_(texts::openSession)))
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleRole(this, QAccessible::ListItem);
    auto* texts = new QWidget;
    auto* lines = makeColumn(texts, 1);
    for (TextLabel* label : {title_, message_, time_})
        lines->addWidget(label);
    open_->setFlat(true);
    open_->setToolTip(words_(texts::jumpToTerminal));
    connect(open_, &QPushButton::clicked, this, openSession_);

    auto* layout = makeLine(this, 8);
    layout->setContentsMargins(directed(inRow(cardEdge), scaled(aboveAndBelow) + 1,
                                        inRow(cardEdge - flatPadding), scaled(aboveAndBelow)));
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
        openSession_();
    else
        QWidget::keyPressEvent(event); // the pane handles the arrow keys
}

/// All past alerts that are remembered, the newest first.
class RecentPane final : public PaneColumn {
public:
    explicit RecentPane(Services& services);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeEmpty();
    RecentRowView* makeRow(const EventHistory::Entry& entry);
    void showHistory();
    void moveFocus(int rows);

    Services& services_;
    const Words words_;
    LinkButton* clear_;
    Card* card_;
    QWidget* empty_ = nullptr;
    std::vector<RecentRowView*> rows_;
    QBasicTimer refresh_; ///< "4 minutes ago" becomes "5 minutes ago".
    Subscription historyChange_;
};

RecentPane::RecentPane(Services& services)
    : services_(services),
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
    auto* empty = new QWidget;
    auto* layout = makeColumn(empty);
    // In the middle of the pane, not of the room below its first line.
    layout->setContentsMargins(0, 0, 0, scaled(introHeight));
    layout->addStretch(1);
    layout->addWidget(new SymbolLabel("clock.badge.questionmark", emptySymbol), 0, Qt::AlignHCenter);
    layout->addSpacing(scaled(12));
    for (TextLabel* label :
         {makeParagraph(TextStyle::headline, Tone::neutral, words_(texts::noRecentActivity)),
          makeParagraph(TextStyle::body, Tone::secondary, words_(texts::recentEmpty))}) {
        label->setCentred();
        layout->addWidget(label);
        layout->addSpacing(scaled(2));
    }
    layout->addStretch(1);
    return empty;
}

RecentRowView* RecentPane::makeRow(const EventHistory::Entry& entry)
{
    return new RecentRowView(words_, entry.id, [this, term = entry.term, cwd = entry.cwd] {
        services_.actions.openSession(term, cwd);
    });
}

void RecentPane::showHistory()
{
    const auto& entries = services_.history.entries();
    bool isLonger = false;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        // New entries come before the old ones.
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
    refresh_.start(refreshMilliseconds, this);
}

void RecentPane::hideEvent(QHideEvent* event)
{
    PaneColumn::hideEvent(event);
    refresh_.stop();
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

PaneColumn* makeRecentPane(Services& services)
{
    return new RecentPane(services);
}

}
