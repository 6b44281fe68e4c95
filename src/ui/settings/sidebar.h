// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/settings_model.h"
#include "ui/look/words.h"

#include <QStyledItemDelegate>
#include <QWidget>

class QListWidget;

namespace chimewell {

/// Paints one line of the sidebar: a symbol and a name on a ground that tells whether it is the current one.
class SidebarDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    static constexpr int iconRole = Qt::UserRole;

    /// `gap` pixels are left below each row.
    SidebarDelegate(int gap, QObject* parent) : QStyledItemDelegate(parent), gap_(gap) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    int gap_;
};

/// The list of the settings' parts at the window's leading edge.
class Sidebar final : public QWidget {
    Q_OBJECT
public:
    explicit Sidebar(const Words& words, QWidget* parent = nullptr);

    void choose(Pane pane);

Q_SIGNALS:
    void chosen(chimewell::Pane pane);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QListWidget* list_;
};

}
