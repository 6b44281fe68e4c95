// SPDX-License-Identifier: MIT
#include "ui/settings/sidebar.h"

#include "ui/controls/layouts.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"
#include "values/texts.h"

#include <QListWidget>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double rowHeight = 32, padding = 8;

constexpr double sidebarWidth = 184, sidebarPadding = 12, betweenRows = 2;

constexpr int iconRole = Qt::UserRole;

/// Paints one line of the sidebar: a symbol and a name, on a tinted background where it is the current one.
class SidebarDelegate final : public QStyledItemDelegate {
public:
    /// `gap` pixels are left below each row.
    SidebarDelegate(int gap, QObject* parent) : QStyledItemDelegate(parent), gap_(gap) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    int gap_;
};

void SidebarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    const Colours& c = colours();
    const bool isCurrent = option.state & QStyle::State_Selected;
    const bool isActive = option.state & QStyle::State_Active;
    const QRect row = option.rect.adjusted(0, 0, 0, -gap_);
    const auto placed = [&](const QRect& area) { return QStyle::visualRect(option.direction, row, area); };
    painter->save();
    const int radius = scaled(metrics::controlRadius);
    if (isCurrent)
        fillRounded(*painter, row, radius, c.overlay(Colours::selected));
    else if (option.state & QStyle::State_MouseOver)
        fillRounded(*painter, row, radius, c.overlay(Colours::hover));

    const int side = scaled(metrics::sidebarIcon);
    QRect area = row.adjusted(scaled(padding), 0, -scaled(padding), 0);
    paintSymbol(*painter, index.data(iconRole).toString().toStdString(),
                placed(QRect(area.left(), area.top(), side, area.height())), side,
                isCurrent && isActive ? c.accentText : c.secondary, option.direction);
    area.setLeft(area.left() + side + scaled(padding));
    painter->setFont(fontFor(isCurrent ? TextStyle::bodyMedium : TextStyle::body));
    painter->setPen(c.text);
    paintTextLine(*painter, placed(area), index.data().toString(), option.direction);
    if (option.state & QStyle::State_HasFocus && ChimewellStyle::showsFocus(option.widget))
        paintFocusRing(*painter, row, radius);
    painter->restore();
}

QSize SidebarDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const QFontMetrics size(fontFor(TextStyle::bodyMedium));
    return {3 * scaled(padding) + scaled(metrics::sidebarIcon) +
                size.horizontalAdvance(index.data().toString()) + 1,
            std::max(scaled(rowHeight), size.height() + scaled(8)) + gap_};
}

}

Sidebar::Sidebar(const Words& words) : list_(new QListWidget)
{
    setFocusProxy(list_);
    list_->setAccessibleName(words(texts::settingsSections));
    list_->setFrameShape(QFrame::NoFrame);
    list_->viewport()->setAutoFillBackground(false);
    list_->setUniformItemSizes(true);
    list_->setSpacing(0);
    list_->setMouseTracking(true);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setItemDelegate(new SidebarDelegate(scaled(betweenRows), list_));
    for (const Pane pane : allPanes) {
        auto* item = new QListWidgetItem(words(title(pane)), list_);
        item->setData(iconRole, qString(iconName(pane)));
    }
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) Q_EMIT chosen(allPanes[static_cast<std::size_t>(row)]);
    });

    auto* layout = makeColumn(this);
    const int space = scaled(sidebarPadding);
    layout->setContentsMargins(space, space, space, space);
    layout->addWidget(list_);
    setFixedWidth(std::max(scaled(sidebarWidth), list_->sizeHintForColumn(0) + 2 * space));
}

void Sidebar::choose(Pane pane)
{
    list_->setCurrentRow(static_cast<int>(pane));
}

void Sidebar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), colours().sidebar);
    const QRect line(width() - 1, 0, 1, height());
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), line), colours().cardBorder());
}

}
