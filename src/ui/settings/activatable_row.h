// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace chimewell {

/// A whole row that leads somewhere: what it is and an arrow.
class ActivatableRow final : public QAbstractButton {
    Q_OBJECT
public:
    explicit ActivatableRow(const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}
