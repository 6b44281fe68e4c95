// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

namespace chimewell {

/// A choice of one among several. The wheel scrolls the pane and does not change it.
class Picker : public QComboBox {
    Q_OBJECT
public:
    /// `name` says what is chosen.
    explicit Picker(const QString& name, QWidget* parent = nullptr);

protected:
    void wheelEvent(QWheelEvent* event) override;
};

}
