// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace chimewell {

/// Opens and closes what is below it: an arrow and what that is.
class FoldButton final : public QAbstractButton {
    Q_OBJECT
public:
    explicit FoldButton(const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}
