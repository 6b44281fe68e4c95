// SPDX-License-Identifier: MIT
#pragma once

#include <QLayout>
#include <QList>

#include <memory>
#include <vector>

namespace chimewell {

/// Puts its items beside one another and goes on below when the line is full. The last item may stand at the
/// trailing edge of its line.
class FlowLayout final : public QLayout {
    Q_OBJECT
public:
    enum class Last { follows, trails };

    explicit FlowLayout(int spacing, Last last = Last::follows, QWidget* parent = nullptr);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return arrange(QRect(0, 0, width, 0), false); }
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& area) override;

private:
    /// Returns the height that it takes.
    int arrange(const QRect& outer, bool places) const;

    std::vector<std::unique_ptr<QLayoutItem>> items_;
    Last last_;
};

}
