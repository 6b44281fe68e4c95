// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <string>
#include <string_view>

namespace chimewell {

/// What a dialog is about, at its leading edge: a symbol on a ground of its own.
class DialogMark final : public QWidget {
    Q_OBJECT
public:
    explicit DialogMark(std::string_view symbol, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string symbol_;
};

}
