// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"

#include <QRect>
#include <QWidget>

#include <cstdint>

namespace chimewell {

class PanelContent;

/// The panel: a pop-up beside the icon, or an ordinary window where there is no icon. Deletes itself when it
/// is closed.
class PanelWindow final : public QWidget {
    Q_OBJECT
public:
    enum class Form : std::uint8_t { popUp, window };

    PanelWindow(Services& services, const Windows& windows, Form form);

    /// Beside `anchor`, in global coordinates, inside the free part of its screen.
    void showBeside(const QRect& anchor);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fit();

    Form form_;
    PanelContent* content_;
    QRect anchor_;
    bool isGrabbing_ = false; ///< The mouse, if the platform allows.
    bool isLeaving_ = false;  ///< A button was pressed outside.
};

}
