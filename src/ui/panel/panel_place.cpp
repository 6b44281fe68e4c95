// SPDX-License-Identifier: MIT
#include "ui/panel/panel_place.h"

#include <QCursor>
#include <QGuiApplication>
#include <QRectF>
#include <QScreen>

namespace chimewell {

namespace {

/// A panel that hides itself takes no room from the screen. Icons are still this near to the edge, in points.
constexpr int edge = 64;

bool isAtEdge(const QPoint& place, const QRect& screen, const QRect& free)
{
    return screen.contains(place) &&
           (!free.contains(place) || !screen.adjusted(edge, edge, -edge, -edge).contains(place));
}

/// On a screen of which the desktop's panel leaves `free`.
QRect panelAnchor(const std::optional<QRect>& icon, const QPoint& pointer, const QRect& screen,
                  const QRect& free, Qt::LayoutDirection direction)
{
    if (icon && isAtEdge(icon->center(), screen, free)) return *icon;
    if (isAtEdge(pointer, screen, free)) return {pointer, QSize(1, 1)};
    // Status icons are at the end of a panel: in reading direction, or at its bottom.
    const bool isPanelLeft = free.left() > screen.left();
    const bool isPanelRight = free.right() < screen.right();
    const bool isPanelUpright = isPanelLeft != isPanelRight;
    const bool isLeft = isPanelUpright ? isPanelLeft : direction == Qt::RightToLeft;
    const bool isBottom = isPanelUpright || free.bottom() < screen.bottom();
    const QPoint corner(isLeft ? screen.left() : screen.right(), isBottom ? screen.bottom() : screen.top());
    return {corner, QSize(1, 1)};
}

}

QRect panelAnchor(const std::optional<ScreenArea>& icon)
{
    std::optional<QRect> area;
    if (icon) area = QRectF(icon->x, icon->y, icon->width, icon->height).toAlignedRect();
    const QPoint pointer = QCursor::pos();
    const QScreen* screen = QGuiApplication::screenAt(area ? area->center() : pointer);
    if (!screen) screen = QGuiApplication::primaryScreen();
    return panelAnchor(area, pointer, screen->geometry(), screen->availableGeometry(),
                       QGuiApplication::layoutDirection());
}

}
