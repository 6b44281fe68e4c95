// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

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

}
