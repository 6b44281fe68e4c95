// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

#include <string>
#include <string_view>

namespace chimewell {

/// A line of a menu: a symbol and what it does.
class ActionRow final : public QAbstractButton {
    Q_OBJECT
public:
    ActionRow(std::string_view symbol, const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string symbol_;
};

}
