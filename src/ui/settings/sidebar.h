// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/settings_model.h"
#include "ui/look/words.h"

#include <QWidget>

class QListWidget;

namespace chimewell {

/// The list of panes at the window's leading edge.
class Sidebar final : public QWidget {
    Q_OBJECT
public:
    explicit Sidebar(const Words& words);

    void choose(Pane pane);

Q_SIGNALS:
    void chosen(chimewell::Pane pane);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QListWidget* list_;
};

}
