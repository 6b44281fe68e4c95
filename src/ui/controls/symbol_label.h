// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"

#include <QWidget>

#include <string>
#include <string_view>

namespace chimewell {

/// A symbol that is no control.
class SymbolLabel final : public QWidget {
    Q_OBJECT
public:
    /// `size` is a design length.
    SymbolLabel(std::string_view name, double size, Tone tone, QWidget* parent = nullptr);

    void setSymbol(std::string_view name, Tone tone);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string name_;
    double size_;
    Tone tone_;
};

}
