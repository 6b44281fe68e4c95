// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

#include <string>
#include <string_view>

namespace chimewell {

/// A borderless button that shows a symbol alone.
class IconButton final : public QAbstractButton {
    Q_OBJECT
public:
    /// `name` is its accessible name and, unless another one is set, its tooltip.
    IconButton(std::string_view symbol, const QString& name, QWidget* parent = nullptr);

    void setSymbol(std::string_view symbol);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string symbol_;
};

}
