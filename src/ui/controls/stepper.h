// SPDX-License-Identifier: MIT
#pragma once

#include <QSpinBox>

namespace chimewell {

/// A whole number, one more or one less at a time: two halves with a hairline between them. The number itself
/// stands in the row's text.
class Stepper final : public QSpinBox {
    Q_OBJECT
public:
    explicit Stepper(const QString& name, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    /// -1 for the half that takes away, 1 for the other.
    int halfAt(const QPoint& position) const;
    void repeatAfter(int milliseconds);

    int pressed_ = 0;
    int timer_ = 0;
};

}
