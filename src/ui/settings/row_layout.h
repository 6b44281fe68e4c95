// SPDX-License-Identifier: MIT
#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace chimewell {

/// A label and, at the end of the line, its control: the two items in the order in which they were added. A
/// control that would leave the label too little room stands below it.
class RowLayout final : public QLayout {
    Q_OBJECT
public:
    explicit RowLayout(QWidget* parent = nullptr);
    RowLayout(QWidget* label, QWidget* control, QWidget* parent = nullptr);
    ~RowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& area) override;

private:
    /// Where the shown items go; relative to the layout's own corner, as if the line ran rightwards.
    struct Places {
        QRect label;
        QRect control;
        int height = 0;
    };
    Places places(int width) const;
    const QLayoutItem* shown(std::size_t index) const;

    std::vector<std::unique_ptr<QLayoutItem>> items_;
};

}
