// SPDX-License-Identifier: MIT
#include "ui/panel/panel_rows.h"

#include "ui/controls/accessibility.h"
#include "ui/controls/buttons.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/controls/text_label.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/paint.h"
#include "values/texts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace chimewell {

void StatusDot::setTone(Tone tone)
{
    tone_ = tone;
    update();
}

void StatusDot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    fillRounded(painter, rect(), width() / 2.0, colours().markColour(tone_));
}

QuickRow::QuickRow(const QString& name)
    : icon_(new SymbolLabel("bell", metrics::rowIcon)),
      detail_(new TextLabel(TextStyle::caption, Tone::secondary)),
      switch_(new SwitchButton(name))
{
    setMinimumHeight(scaled(38));
    auto* label = new ElidedLabel(TextStyle::body);
    label->setFullText(name);
    QHBoxLayout* layout = makeLine(this, 8);
    layout->setContentsMargins(scaled(12), 0, scaled(9), 0);
    layout->addWidget(icon_);
    layout->addWidget(label, 1);
    layout->addWidget(detail_);
    layout->addWidget(switch_);
    detail_->hide();
}

void QuickRow::setSymbol(std::string_view symbol, Tone tone)
{
    icon_->setSymbol(symbol, tone);
}

void QuickRow::setDetail(const QString& detail)
{
    detail_->setText(detail);
    detail_->setVisible(!detail.isEmpty());
    switch_->setAccessibleDescription(detail);
}

IconButton* QuickRow::addButton(std::string_view symbol, const QString& name)
{
    auto* button = new IconButton(symbol, name);
    auto* box = qobject_cast<QHBoxLayout*>(layout());
    box->insertWidget(box->count() - 1, button);
    QWidget::setTabOrder(switch_, button);
    return button;
}

void QuickRow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->pos())) switch_->click();
}

RecentPanelRow::RecentPanelRow(const Words& words, std::function<void(const RecentRow&)> openSession)
    : words_(words),
      openSession_(std::move(openSession)),
      icon_(new SymbolLabel("bell", metrics::rowIcon)),
      title_(new ElidedLabel(TextStyle::body)),
      time_(new TextLabel(TextStyle::caption, Tone::secondary)),
      message_(new ElidedLabel(TextStyle::caption, Tone::secondary)),
      open_(new IconButton("arrow.up.forward.app", words(texts::openSessionTooltip)))
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleRole(this, QAccessible::ListItem);
    setAttribute(Qt::WA_Hover);
    setMinimumHeight(scaled(46));

    QSizePolicy keepsRoom = open_->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true); // so that the times are aligned
    open_->setSizePolicy(keepsRoom);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(scaled(12), scaled(5), scaled(8), scaled(5));
    layout->setHorizontalSpacing(scaled(8));
    layout->setVerticalSpacing(scaled(1));
    layout->addWidget(icon_, 0, 0);
    layout->addWidget(title_, 0, 1);
    layout->addWidget(time_, 0, 2);
    layout->addWidget(message_, 1, 1, 1, 2);
    layout->addWidget(open_, 0, 3, 2, 1);
    layout->setColumnStretch(1, 1);

    connect(open_, &QAbstractButton::clicked, this, [this] { openSession_(row_); });
}

void RecentPanelRow::show(const RecentRow& row)
{
    row_ = row;
    icon_->setSymbol(iconName(row.event), iconTone(row.event));
    title_->setFullText(words_(row.title));
    time_->setText(qString(row.relativeTime));
    time_->setToolTip(qString(row.timeText));
    message_->setFullText(words_(row.message));
    open_->setAccessibleName(words_({texts::openSessionOf, {row.title}}));
    open_->setVisible(row.hasSession());
    setAccessibleName(words_(row.title) + QStringLiteral(". ") + words_(row.message) + QStringLiteral(". ") +
                      qString(row.timeText));
}

void RecentPanelRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // Inside the card's round corners.
    const QRectF area = QRectF(rect()).adjusted(3, 3, -3, -3);
    const int radius = scaled(metrics::controlRadius);
    if (underMouse()) fillRounded(painter, area, radius, colours().overlay(Colours::hover));
    if (ChimewellStyle::showsFocus(this)) paintFocusRing(painter, area, radius);
}

void RecentPanelRow::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (row_.hasSession()) openSession_(row_);
        return;
    case Qt::Key_Down:
        focusNextChild();
        return;
    case Qt::Key_Up:
        focusPreviousChild();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

}
