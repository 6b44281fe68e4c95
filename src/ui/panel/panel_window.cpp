// SPDX-License-Identifier: MIT
#include "ui/panel/panel_window.h"

#include "ui/controls/accessibility.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/panel/panel_content.h"
#include "values/texts.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double panelWidth = 380;
constexpr double largestHeight = 720;
constexpr int screenMargin = 8;
constexpr double radius = 12, shadowWidth = 20, shadowOpacity = 0.05;

Qt::WindowFlags flagsOf(PanelWindow::Form form)
{
    if (form == PanelWindow::Form::window) return Qt::Window;
    // Not Qt::Popup: assistive technology does not see windows of that type.
    return Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint;
}

}

PanelWindow::PanelWindow(Services& services, const Windows& windows, Form form)
    : QWidget(nullptr, flagsOf(form)),
      form_(form),
      shadow_(form == Form::roundPopUp ? scaled(shadowWidth) : 0),
      content_(new PanelContent(services, windows))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground, form == Form::roundPopUp);
    setWindowTitle(Words(services.ports.translator)(texts::panelName));
    setAccessibleRole(this, QAccessible::Window);
    setAccessibleName(Words(services.ports.translator)(texts::panelName));
    auto* layout = new QVBoxLayout(this);
    const int edge = shadow_ + 1;
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->addWidget(content_);
    setFixedWidth(scaled(panelWidth) + 2 * shadow_);

    connect(content_, &PanelContent::done, this, [this] {
        if (form_ != Form::window) close();
    });
    // Queued, so that the layout has the change.
    connect(content_, &PanelContent::heightChanged, this, [this] { fit(); }, Qt::QueuedConnection);
}

void PanelWindow::showBeside(const QRect& anchor, const PreparePanel& prepare)
{
    anchor_ = anchor;
    fit();
    // Not earlier: a window that exists before it has its place may be shown elsewhere.
    if (prepare) prepare(winId(), shadow_);
    show();
    raise();
    activateWindow();
    // The focus starts at the first control, and its ring shows once the keyboard is used.
    focusNextChild();
    setAttribute(Qt::WA_KeyboardFocusChange, false);
}

void PanelWindow::fit()
{
    const QScreen* screen = QGuiApplication::screenAt(anchor_.center());
    if (!screen) screen = QGuiApplication::primaryScreen();
    const QRect free =
        screen->availableGeometry().adjusted(screenMargin, screenMargin, -screenMargin, -screenMargin);
    layout()->activate();
    const int height = std::min({content_->sizeHint().height() + 2, scaled(largestHeight), free.height()});
    resize(width(), height + 2 * shadow_);
    if (form_ == Form::window) return;
    const int width = body().width();
    const int left = std::clamp(anchor_.center().x() - width / 2, free.left(),
                                std::max(free.left(), free.right() + 1 - width));
    // Below an icon at the top of the screen, above one at its bottom.
    const bool isBelow = anchor_.center().y() < screen->geometry().center().y();
    const int wanted =
        isBelow ? anchor_.bottom() + 1 + screenMargin / 2 : anchor_.top() - height - screenMargin / 2;
    const int top = std::clamp(wanted, free.top(), std::max(free.top(), free.bottom() + 1 - height));
    move(left - shadow_, top - shadow_);
}

void PanelWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int corner = form_ == Form::roundPopUp ? scaled(radius) : 0;
    for (int i = 0; i < shadow_; ++i) {
        const qreal fading = 1 - (i + 0.5) / shadow_;
        strokeRounded(painter, body().adjusted(-i - 1, -i - 1, i + 1, i + 1), corner + i + 1,
                      Colours::faint(Qt::black, shadowOpacity * fading * fading));
    }
    fillRounded(painter, body(), corner, colours().window);
    if (form_ == Form::window) return;
    strokeRounded(painter, body(), corner, colours().overlay(0.2));
    // Clicks elsewhere close the panel. Only a visible window can grab the mouse, and none under Wayland,
    // where such a click takes the focus away from the panel.
    if (!isGrabbing_ && QGuiApplication::platformName() != QStringLiteral("wayland"))
        isGrabbing_ = windowHandle()->setMouseGrabEnabled(true);
}

void PanelWindow::mousePressEvent(QMouseEvent* event)
{
    isLeaving_ = form_ != Form::window && !body().contains(event->pos());
}

void PanelWindow::mouseReleaseEvent(QMouseEvent*)
{
    // Not on the press: that would end the grab, and the icon's host would take the release for a click on
    // the icon, which opens the panel again.
    if (isLeaving_) close();
}

void PanelWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    // The user switched to another window by keyboard.
    if (event->type() == QEvent::ActivationChange && form_ != Form::window && isVisible() &&
        !isActiveWindow() && !QApplication::activePopupWidget())
        close();
}

void PanelWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

}
