// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QVBoxLayout;

namespace chimewell {

/// A framed container of rows, one below the other, with hairlines between those that are shown.
class Card final : public QWidget {
    Q_OBJECT
public:
    explicit Card(QWidget* parent = nullptr);

    /// `padding` on all four sides is a design length; without rows of its own the card holds one content.
    void setContent(QWidget* content, double padding);
    /// The hairline above the row begins `textStart`, a design length, from the card's leading edge.
    void addRow(QWidget* row, double textStart = 12);
    void insertRow(int index, QWidget* row, double textStart);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* layout_;
};

}
