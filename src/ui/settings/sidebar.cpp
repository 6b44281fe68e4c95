// SPDX-License-Identifier: MIT
#include "ui/settings/sidebar.h"

#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/settings/sidebar_delegate.h"
#include "values/texts.h"

#include <QListWidget>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double sidebarWidth = 184, padding = 12, betweenRows = 2;

}

Sidebar::Sidebar(const Words& words, QWidget* parent) : QWidget(parent), list_(new QListWidget)
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
        item->setData(SidebarDelegate::iconRole, qString(iconName(pane)));
    }
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) Q_EMIT chosen(allPanes[static_cast<std::size_t>(row)]);
    });

    auto* layout = new QVBoxLayout(this);
    const int space = scaled(padding);
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
