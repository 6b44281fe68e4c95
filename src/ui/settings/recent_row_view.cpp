// SPDX-License-Identifier: MIT
#include "ui/settings/recent_row_view.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/edges.h"
#include "ui/controls/symbol_label.h"
#include "ui/controls/text_label.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/paint.h"
#include "ui/look/symbol_icon.h"
#include "ui/settings/row_layout.h"
#include "values/texts.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

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

}
