// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"

#include <QWidget>

#include <string_view>

namespace chimewell {

class IconButton;
class SwitchButton;
class SymbolLabel;

/// A symbol, a name and a switch, with a button before the switch where there is something to try.
class QuickRow final : public QWidget {
    Q_OBJECT
public:
    explicit QuickRow(const QString& name, QWidget* parent = nullptr);

    SwitchButton* toggle() const { return switch_; }
    void setSymbol(std::string_view symbol, Tone tone);
    IconButton* addButton(std::string_view symbol, const QString& name);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    SymbolLabel* icon_;
    SwitchButton* switch_;
};

}
