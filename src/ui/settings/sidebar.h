// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/settings_model.h"
#include "ui/words.h"

#include <QWidget>

class QListWidget;

namespace chimewell {

/// The list of the settings' parts at the window's leading edge.
class Sidebar final : public QWidget {
    Q_OBJECT
public:
    explicit Sidebar(const Words& words, QWidget* parent = nullptr);

    void choose(Pane pane);

Q_SIGNALS:
    void chosen(chimewell::Pane pane);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QListWidget* list_;
};

}
