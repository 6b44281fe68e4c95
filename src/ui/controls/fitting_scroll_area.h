// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace chimewell {

/// A column that scrolls up and down only when there is less height than it would like to have.
class FittingScrollArea final : public QScrollArea {
    Q_OBJECT
public:
    explicit FittingScrollArea(QWidget* content, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}
