// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QVariantAnimation>

namespace chimewell {

/// Turns a whole thing on or off.
class SwitchButton final : public QAbstractButton {
    Q_OBJECT
public:
    /// `name` is what those hear who do not see the row.
    explicit SwitchButton(const QString& name, QWidget* parent = nullptr);

    /// Without the sliding and without telling anybody.
    void show(bool isOn);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

private:
    void slide();

    QVariantAnimation knob_;
    qreal place_ = 0; ///< Of the knob: 0 off, 1 on.
};

}
