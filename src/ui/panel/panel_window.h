// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"

#include <QRect>
#include <QWidget>

#include <cstdint>
#include <functional>

namespace chimewell {

class PanelContent;

/// Called with the panel's window before it is shown, and the width of the shadow that it draws around
/// itself.
using PreparePanel = std::function<void(WId panel, int shadow)>;

/// The panel: a pop-up beside the icon, or an ordinary window where there is no icon. Deletes itself when it
/// is closed.
class PanelWindow final : public QWidget {
    Q_OBJECT
public:
    /// A `roundPopUp` has round corners and a shadow, for screens where windows can be translucent.
    enum class Form : std::uint8_t { popUp, roundPopUp, window };

    PanelWindow(Services& services, const Windows& windows, Form form);

    /// Beside `anchor`, in global coordinates, inside the free part of its screen.
    void showBeside(const QRect& anchor, const PreparePanel& prepare = {});

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fit();
    /// The window without its shadow.
    QRect body() const { return rect().adjusted(shadow_, shadow_, -shadow_, -shadow_); }

    Form form_;
    int shadow_;
    PanelContent* content_;
    QRect anchor_;
    bool isGrabbing_ = false; ///< The mouse, if the platform allows.
    bool isLeaving_ = false;  ///< A button was pressed outside.
};

}
