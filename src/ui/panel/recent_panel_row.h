// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/panel_model.h"
#include "ui/words.h"

#include <QWidget>

#include <functional>

namespace chimewell {

class ElidedLabel;
class IconButton;
class SymbolLabel;
class TextLabel;

/// One alert of the past in the panel: what it was, when, and the way back to its session.
class RecentPanelRow final : public QWidget {
    Q_OBJECT
public:
    RecentPanelRow(const Words& words, std::function<void(const RecentRow&)> openSession,
                   QWidget* parent = nullptr);

    void show(const RecentRow& row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const Words words_;
    std::function<void(const RecentRow&)> openSession_;
    RecentRow row_;
    SymbolLabel* icon_;
    ElidedLabel* title_;
    TextLabel* time_;
    ElidedLabel* message_;
    IconButton* open_;
};

}
